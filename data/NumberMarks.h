// Which mark of a table's numbers is the decimal one, and their values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace velmora {

/// What stands between the groups of three digits of a large number.
enum class Thousands { None, Point, Comma, Blank, Apostrophe };

/// The marks of one table. Where nothing has been given or shown, a number with one mark and three
/// digits behind it (1,234) has two readings.
struct NumberMarks {
  char decimal = 0;                    // '.' or ','; 0: not known
  std::optional<Thousands> thousands;  // nothing: whatever is not the decimal mark
};

/// Whether a digit stands first in the text, signs, marks and blanks aside.
bool BeginsLikeANumber(std::string_view text);

/// The decimal mark that a number's text shows by itself: 20,5 and 0,125 and 1.234,5 show a comma,
/// 1,234,567 shows that the comma is none, 1,234 shows nothing; nothing for a text that is no
/// number.
std::optional<char> DecimalMarkShownBy(std::string_view text);

/// The two readings of a number with one mark and three digits behind it, each with a decimal point
/// ("1.234" and "1234" of 1,234); nothing for any other text.
std::optional<std::pair<std::string, std::string>> TwoReadings(std::string_view text);

/// The number's text with a decimal point and without marks between thousands; nothing where
/// they do not stand between groups of three digits. `marks.decimal` must be known.
std::optional<std::string> WithPoint(std::string_view text, const NumberMarks& marks);

}  // namespace velmora
