// Numbers to and from text. Nothing else formats or reads a number that is stored or compared:
// the C library's own routines follow the process's locale, these never do.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The shortest decimal text that reads back as exactly `value`, with a decimal point and a digit
/// before it: "100", "0.5", "-2.25". Exponent form where the first digit stands at or above
/// 10^15 or below 10^-4: "1E-05", "2.5E+20".
std::string ShortestText(double value);

/// `ShortestText` with the locale's `separator` ('.' or ','): what boxes and lists show.
std::string PlainText(double value, char separator);

/// `PlainText` of `value` rounded half away from zero to `digits` significant digits: without what
/// rounding in a sum or product has left behind.
std::string PlainText(double value, char separator, int digits);

/// As `ShortestText`, with a leading blank for a value that is not negative and no zero before
/// the point: " 100", " .8", " 1E-05". The settings boxes open with these texts.
std::string StrText(double value);

/// As `ShortestText` with a blank in front where the value is not negative, and a blank behind.
std::string PrintedText(double value);

/// A display format: the least and the most decimals, as in "0.00##" = {2, 4}.
struct Decimals {
  int least;
  int most;
};
inline constexpr Decimals kTwoToFour{2, 4};       // "0.00##"
inline constexpr Decimals kOneToFour{1, 4};       // "0.0###"
inline constexpr Decimals kTwoToThirteen{2, 13};  // "0.00###########"
inline constexpr Decimals kFour{4, 4};            // "0.0000"

/// `value` rounded half away from zero, as its shortest decimal text shows it, to
/// `decimals.most` places; trailing zeros beyond `decimals.least` places are left out.
std::string Formatted(double value, Decimals decimals, char separator);

/// `value` with the decimals that an `uncertainty` of it leaves certain: up to its first digit, or
/// its second where it begins with 1; four digits where none is known (0 or not finite).
std::string CertainText(double value, double uncertainty, char separator);

/// "0.179 ± 0.009": both as `CertainText`; the value alone where the deviation is not known.
std::string WithDeviation(double value, double deviation, char separator);

/// `value` rounded to `decimals` places, halves to even.
double RoundHalfEven(double value, int decimals);

/// `value`, not negative, rounded to `digits` significant digits; as it is where no double holds
/// the power of ten that this takes.
double RoundSignificant(double value, int digits);

/// Prepares a typed text for conversion: where the locale's separator is not ".", every "." becomes
/// ","; an empty text becomes "0".
std::string Normalised(std::string_view text, char separator);

/// The number that `text` as a whole states, with `separator` as its decimal mark; blanks around
/// it are passed over. Nothing where the text is no number, has a thousands separator or is out of
/// range.
std::optional<double> ParseNumber(std::string_view text, char separator);

/// Whether `text` states a number that no double holds: too large or, though not 0, too near to 0.
bool IsOutOfRange(std::string_view text, char separator);

/// `ParseNumber` of the normalised text: what every box and cell is read with.
std::optional<double> ReadBox(std::string_view text, char separator);

inline constexpr char kBackspace = '\b';

/// What becomes of a typed key.
struct KeyOutcome {
  char32_t key;  // 0 where the key is discarded
  bool beep;
};

/// The key filter of every numeric box: `key` is typed into a box that holds `boxText`. The foreign
/// separator becomes the locale's `separator`; a second separator, a key beyond the length limit
/// (12 characters, 13 with a separator) and whatever is neither digit, separator nor Backspace is
/// discarded with a beep.
KeyOutcome Digitacao(std::string_view boxText, char32_t key, char separator);

}  // namespace velmora
