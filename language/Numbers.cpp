#include "language/Numbers.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <string>

namespace velmora {
namespace {

// Beyond these powers of ten the text of a number takes the exponent form.
constexpr int kLeastFixedExponent = -4;
constexpr int kMostFixedExponent = 14;

/// A finite number as sign x 0.d1d2d3... x 10^point.
struct Digits {
  bool negative = false;
  std::string digits;  // no leading zeros; "0" for zero
  int point = 1;       // how many digits stand before the decimal mark (may be negative)
};

Digits ShortestDigits(double value) {
  assert(std::isfinite(value));
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific)
                       .ptr;
  const char* const exponentMark = std::find(buffer.data(), end, 'e');
  Digits result;
  for (const char* c = buffer.data(); c != exponentMark; ++c) {
    if (*c == '-') result.negative = value != 0;
    if (*c >= '0' && *c <= '9') result.digits += *c;
  }
  int exponent = 0;
  std::from_chars(exponentMark + (exponentMark[1] == '+' ? 2 : 1), end, exponent);
  result.point = exponent + 1;
  return result;
}

std::string FixedText(const Digits& number) {
  const int count = static_cast<int>(number.digits.size());
  std::string text = number.negative ? "-" : "";
  if (number.point <= 0) {
    text += "0." + std::string(static_cast<std::size_t>(-number.point), '0') + number.digits;
  } else if (number.point >= count) {
    text += number.digits + std::string(static_cast<std::size_t>(number.point - count), '0');
  } else {
    const auto whole = static_cast<std::size_t>(number.point);
    text += number.digits.substr(0, whole) + "." + number.digits.substr(whole);
  }
  return text;
}

std::string ExponentText(const Digits& number) {
  const int exponent = number.point - 1;
  std::string text = number.negative ? "-" : "";
  text += number.digits[0];
  if (number.digits.size() > 1) text += "." + number.digits.substr(1);
  text += exponent < 0 ? "E-" : "E+";
  const std::string magnitude = std::to_string(std::abs(exponent));
  return text + (magnitude.size() < 2 ? "0" : "") + magnitude;
}

std::string TextOf(const Digits& number) {
  const int exponent = number.point - 1;
  const bool fixed = exponent >= kLeastFixedExponent && exponent <= kMostFixedExponent;
  return number.digits == "0" || fixed ? FixedText(number) : ExponentText(number);
}

/// Rounds the decimal digits half away from zero to `decimals` places behind the mark.
void RoundDigits(Digits& number, int decimals) {
  const int kept = number.point + decimals;
  if (kept >= static_cast<int>(number.digits.size())) return;
  const bool up = kept >= 0 && number.digits[static_cast<std::size_t>(kept)] >= '5';
  number.digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
  if (!up) return;
  auto digit = number.digits.rbegin();
  while (digit != number.digits.rend() && *digit == '9') *digit++ = '0';
  if (digit != number.digits.rend()) {
    ++*digit;
  } else {
    number.digits.insert(0, 1, '1');
    ++number.point;
  }
}

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

struct Parsed {
  double value = 0;
  std::errc error = std::errc::invalid_argument;  // or result_out_of_range, or none
};

Parsed Parse(std::string_view text, char separator) {
  std::string number(WithoutBlanks(text));
  if (number.starts_with('+')) {
    number.erase(0, 1);
    if (number.starts_with('+') || number.starts_with('-')) return {};
  }
  const char foreign = separator == '.' ? ',' : '.';
  const bool decimalText = number.find(foreign) == std::string::npos &&
                           number.find_first_not_of("+-0123456789eE.,") == std::string::npos;
  if (!decimalText) return {};
  std::replace(number.begin(), number.end(), separator, '.');
  Parsed parsed;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, parsed.value);
  if (stop == end) parsed.error = error;
  return parsed;
}

}  // namespace

std::string ShortestText(double value) {
  return TextOf(ShortestDigits(value));
}

std::string PlainText(double value, char separator) {
  std::string text = ShortestText(value);
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

std::string PlainText(double value, char separator, int digits) {
  Digits number = ShortestDigits(value);
  RoundDigits(number, digits - number.point);
  while (number.digits.size() > 1 && number.digits.back() == '0') number.digits.pop_back();
  std::string text = TextOf(number);
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

std::string StrText(double value) {
  std::string text = ShortestText(value);
  const std::size_t zero = text.find("0.");
  if (zero == 0 || (zero == 1 && text[0] == '-')) text.erase(zero, 1);
  return value < 0 ? text : " " + text;
}

std::string PrintedText(double value) {
  return (value < 0 ? "" : " ") + ShortestText(value) + " ";
}

std::string Formatted(double value, Decimals decimals, char separator) {
  Digits number = ShortestDigits(value);
  RoundDigits(number, decimals.most);
  std::string whole, fraction;
  for (int place = std::min(number.point, 0); place < static_cast<int>(number.digits.size());
       ++place) {
    const char digit = place < 0 ? '0' : number.digits[static_cast<std::size_t>(place)];
    (place < number.point ? whole : fraction) += digit;
  }
  whole.append(static_cast<std::size_t>(std::max(0, number.point - static_cast<int>(whole.size()))),
               '0');
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  const bool zero = fraction.empty() && whole.find_first_not_of('0') == std::string::npos;
  if (static_cast<int>(fraction.size()) < decimals.least)
    fraction.resize(static_cast<std::size_t>(decimals.least), '0');
  std::string text = number.negative && !zero ? "-" : "";
  text += whole.empty() ? "0" : whole;
  if (!fraction.empty()) text += separator + fraction;
  return text;
}

std::string CertainText(double value, double uncertainty, char separator) {
  constexpr int kDigitsUnknown = 4, kMostDecimals = 13;
  if (!(uncertainty > 0) || !std::isfinite(uncertainty) || !std::isfinite(value))
    return PlainText(value, separator, kDigitsUnknown);
  const double decade = std::floor(std::log10(uncertainty));
  const int digits = uncertainty / std::pow(10.0, decade) < 2 ? 2 : 1;
  const int decimals = std::min(digits - 1 - static_cast<int>(decade), kMostDecimals);
  if (decimals >= 0) return Formatted(value, {decimals, decimals}, separator);
  const double unit = std::pow(10.0, -decimals);
  return PlainText(std::round(value / unit) * unit, separator);
}

std::string WithDeviation(double value, double deviation, char separator) {
  std::string text = CertainText(value, deviation, separator);
  if (!(deviation > 0) || !std::isfinite(deviation) || !std::isfinite(value)) return text;
  return text + " ± " + CertainText(deviation, deviation, separator);
}

double RoundHalfEven(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = value * scale;
  // A number that large has no decimals.
  return std::isfinite(scaled) ? std::nearbyint(scaled) / scale : value;
}

double RoundSignificant(double value, int digits) {
  if (value == 0) return 0;
  const int decimals = digits - 1 - static_cast<int>(std::floor(std::log10(value)));
  const double scale = std::pow(10, std::abs(decimals));
  if (!std::isfinite(scale) || !std::isfinite(value)) return value;
  return decimals >= 0 ? std::round(value * scale) / scale : std::round(value / scale) * scale;
}

std::string Normalised(std::string_view text, char separator) {
  if (text.empty()) return "0";
  std::string result(text);
  if (separator != '.') std::replace(result.begin(), result.end(), '.', ',');
  return result;
}

std::optional<double> ParseNumber(std::string_view text, char separator) {
  const Parsed parsed = Parse(text, separator);
  if (parsed.error != std::errc{}) return std::nullopt;
  return parsed.value;
}

bool IsOutOfRange(std::string_view text, char separator) {
  return Parse(text, separator).error == std::errc::result_out_of_range;
}

std::optional<double> ReadBox(std::string_view text, char separator) {
  return ParseNumber(Normalised(text, separator), separator);
}

KeyOutcome Digitacao(std::string_view boxText, char32_t key, char separator) {
  constexpr std::size_t kMostCharacters = 12;  // one more where the text has a separator
  const char own = separator == '.' ? '.' : ',';
  const char foreign = separator == '.' ? ',' : '.';
  if (key == static_cast<char32_t>(foreign)) key = static_cast<char32_t>(own);

  const auto separators = std::count(boxText.begin(), boxText.end(), own);
  const bool isSeparator = key == static_cast<char32_t>(own);
  const bool secondSeparator = separators >= 1 && isSeparator;
  const bool full = boxText.size() >= kMostCharacters + (separators == 1 ? 1 : 0);
  const bool isDigit = key >= U'0' && key <= U'9';
  const bool isBackspace = key == static_cast<char32_t>(kBackspace);
  if (secondSeparator || (full && !isBackspace) || !(isDigit || isSeparator || isBackspace))
    return {0, true};
  return {key, false};
}

}  // namespace velmora
