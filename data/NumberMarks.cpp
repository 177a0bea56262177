#include "data/NumberMarks.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kGroup = 3;  // digits between two marks of thousands

struct ThousandsMark {
  std::string_view letter;
  Thousands thousands;
};
/// The blanks are the plain, the thin, the no-break and the narrow no-break one.
constexpr std::array<ThousandsMark, 8> kThousandsMarks = {{{".", Thousands::Point},
                                                           {",", Thousands::Comma},
                                                           {" ", Thousands::Blank},
                                                           {"\u2009", Thousands::Blank},
                                                           {"\u00A0", Thousands::Blank},
                                                           {"\u202F", Thousands::Blank},
                                                           {"'", Thousands::Apostrophe},
                                                           {"\u2019", Thousands::Apostrophe}}};

/// A number's sign, its digits with their marks, and its exponent.
struct Parts {
  std::string_view sign;
  std::string_view digits;
  std::string_view exponent;
};

Parts PartsOf(std::string_view text) {
  const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  const std::size_t exponent = std::min(text.find_first_of("eE"), text.size());
  if (exponent < sign) return {{}, text, {}};
  return {text.substr(0, sign), text.substr(sign, exponent - sign), text.substr(exponent)};
}

std::size_t DigitsAtStart(std::string_view text) {
  return std::min(text.find_first_not_of(kDigits), text.size());
}

/// The digits of groups of three, the first of one to three, with `mark` between them; nothing
/// where they stand otherwise.
std::optional<std::string> WithoutMark(std::string_view grouped, std::string_view mark) {
  std::string digits(grouped.substr(0, DigitsAtStart(grouped)));
  if (digits.empty() || digits.size() > kGroup || digits.starts_with('0')) return std::nullopt;
  for (grouped.remove_prefix(digits.size()); !grouped.empty(); grouped.remove_prefix(kGroup)) {
    if (!grouped.starts_with(mark)) return std::nullopt;
    grouped.remove_prefix(mark.size());
    if (DigitsAtStart(grouped) < kGroup) return std::nullopt;
    digits += grouped.substr(0, kGroup);
  }
  return digits;
}

/// The digits of whole thousands, whatever may stand between them beside the decimal mark.
std::optional<std::string> Whole(std::string_view text, const NumberMarks& marks) {
  if (DigitsAtStart(text) == text.size()) return std::string(text);
  for (const auto& [letter, thousands] : kThousandsMarks) {
    if (letter.front() == marks.decimal || (marks.thousands && *marks.thousands != thousands))
      continue;
    if (auto digits = WithoutMark(text, letter)) return digits;
  }
  return std::nullopt;
}

bool IsNumber(std::string_view text, char decimal) {
  const std::optional<std::string> plain = WithPoint(text, {decimal, std::nullopt});
  if (!plain) return false;
  const std::string_view digits = PartsOf(*plain).digits;
  return digits.find_first_not_of("0123456789.") == std::string_view::npos &&
         digits.find('.') == digits.rfind('.') &&
         digits.find_first_of(kDigits) != std::string_view::npos;
}

}  // namespace

bool BeginsLikeANumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of("+-., \t");
  return first != std::string_view::npos && text[first] >= '0' && text[first] <= '9';
}

std::optional<std::pair<std::string, std::string>> TwoReadings(std::string_view text) {
  const auto [sign, digits, exponent] = PartsOf(text);
  const std::size_t at = digits.find_first_of(".,");
  if (at == std::string_view::npos || digits.size() != at + 1 + kGroup || !exponent.empty())
    return std::nullopt;
  const std::optional<std::string> whole = WithoutMark(digits, digits.substr(at, 1));
  if (!whole) return std::nullopt;
  const std::string front(sign);
  return std::pair(front + whole->substr(0, at) + "." + whole->substr(at), front + *whole);
}

std::optional<char> DecimalMarkShownBy(std::string_view text) {
  if (text.find_first_of(".,") == std::string_view::npos || TwoReadings(text)) return std::nullopt;
  const bool point = IsNumber(text, '.'), comma = IsNumber(text, ',');
  if (!point && !comma) return std::nullopt;
  if (point && comma) return text[text.find_first_of(".,")];  // of 1,234E2: nobody groups these
  return point ? '.' : ',';
}

std::optional<std::string> WithPoint(std::string_view text, const NumberMarks& marks) {
  const auto [sign, digits, exponent] = PartsOf(text);
  const std::size_t at = std::min(digits.find(marks.decimal), digits.size());
  std::optional<std::string> whole = Whole(digits.substr(0, at), marks);
  if (!whole) return std::nullopt;
  std::string plain = std::string(sign) + *whole;
  if (at < digits.size()) plain.append(".").append(digits.substr(at + 1));
  return plain.append(exponent);
}

}  // namespace velmora
