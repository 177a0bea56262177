#include <gtest/gtest.h>

#include <ostream>

#include "language/Numbers.h"

namespace velmora {
namespace {

struct TextCase {
  double value;
  const char* shortest;
  const char* str;
};
void PrintTo(const TextCase& c, std::ostream* out) {
  *out << c.shortest;
}
class NumberTexts : public testing::TestWithParam<TextCase> {};

TEST_P(NumberTexts, AreTheShortestThatReadBack) {
  const TextCase& c = GetParam();
  EXPECT_EQ(ShortestText(c.value), c.shortest);
  EXPECT_EQ(StrText(c.value), c.str);
  EXPECT_EQ(ParseNumber(ShortestText(c.value), '.'), c.value);
  EXPECT_EQ(ReadBox(StrText(c.value), ','), c.value);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumberTexts,
    testing::Values(TextCase{0, "0", " 0"}, TextCase{100, "100", " 100"},
                    TextCase{0.8, "0.8", " .8"}, TextCase{-0.01, "-0.01", "-.01"},
                    TextCase{0.00001, "1E-05", " 1E-05"}, TextCase{0.0001, "0.0001", " .0001"},
                    TextCase{-2.5e20, "-2.5E+20", "-2.5E+20"},
                    TextCase{999999999999999, "999999999999999", " 999999999999999"},
                    TextCase{1e15, "1E+15", " 1E+15"},
                    TextCase{0.1 + 0.2, "0.30000000000000004", " .30000000000000004"},
                    TextCase{5e-324, "5E-324", " 5E-324"}));

TEST(Numbers, ShowSoManyDigits) {
  EXPECT_EQ(PlainText(0.1 + 0.2, ',', 12), "0,3");
  EXPECT_EQ(PlainText(9.999999999999998e298, '.', 12), "1E+299");
  EXPECT_EQ(PlainText(123456789, '.', 12), "123456789");
  EXPECT_EQ(PlainText(-1234.5, '.', 2), "-1200");
  EXPECT_EQ(PlainText(0, '.', 12), "0");
}

struct FormatCase {
  double value;
  Decimals decimals;
  const char* text;
};
void PrintTo(const FormatCase& c, std::ostream* out) {
  *out << c.text;
}
class Formats : public testing::TestWithParam<FormatCase> {};

TEST_P(Formats, KeepLeastAndMostDecimals) {
  const FormatCase& c = GetParam();
  EXPECT_EQ(Formatted(c.value, c.decimals, '.'), c.text);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, Formats,
    testing::Values(
        FormatCase{0.5, kTwoToFour, "0.50"}, FormatCase{2, kOneToFour, "2.0"},
        FormatCase{0.123456, kTwoToFour, "0.1235"}, FormatCase{0.00005, kTwoToFour, "0.0001"},
        FormatCase{0.00004, kTwoToFour, "0.00"}, FormatCase{-0.00004, kTwoToFour, "0.00"},
        FormatCase{9.99995, kTwoToFour, "10.00"}, FormatCase{0.03125, kFour, "0.0313"},
        FormatCase{1.00005, kFour, "1.0001"}, FormatCase{1.5, kFour, "1.5000"},
        FormatCase{-1234.5, kFour, "-1234.5000"}, FormatCase{1e20, {0, 2}, "100000000000000000000"},
        FormatCase{99.5, {0, 0}, "100"}, FormatCase{0.4, {0, 0}, "0"},
        FormatCase{0.00000000000005, kTwoToThirteen, "0.0000000000001"}));

TEST(Numbers, ReadWholeTextsOnly) {
  for (const char* text : {"", "1.2.3", "abc", "12x", "1 2", "NaN", "inf", "0x10", "1e999", "--1",
                           "+-1", ".", "-", "1,5"})
    EXPECT_FALSE(ParseNumber(text, '.')) << text;
  EXPECT_EQ(ParseNumber(" .5 ", '.'), 0.5);
  EXPECT_EQ(ParseNumber("+2.", '.'), 2);
  EXPECT_EQ(ParseNumber("6,66E-08", ','), 6.66e-8);
  EXPECT_FALSE(ParseNumber("1.5", ','));
  EXPECT_EQ(ReadBox("1.5", ','), 1.5);
  EXPECT_EQ(ReadBox("", '.'), 0);
  EXPECT_FALSE(ReadBox("1,5", '.')) << "a thousands separator is never read as a decimal mark";
}

/// The largest double is 1.7976931348623157E+308; half of the smallest, 4.94E-324, rounds to 0.
TEST(Numbers, TellWhatNoDoubleHoldsFromWhatIsNoNumber) {
  for (const std::string& text :
       {std::string("1e399"), std::string("-1E+309"), std::string("1.7976931348623159e308"),
        std::string("1e-400"), std::string("2.4e-324"), std::string(400, '9') + "e-5"}) {
    EXPECT_FALSE(ParseNumber(text, '.')) << text;
    EXPECT_TRUE(IsOutOfRange(text, '.')) << text;
  }
  EXPECT_TRUE(IsOutOfRange("1,5e999", ','));
  EXPECT_EQ(ParseNumber("0e-999", '.'), 0);
  EXPECT_EQ(ParseNumber("0e999", '.'), 0);
  EXPECT_EQ(ParseNumber("3e-324", '.'), 5e-324);
  for (const char* text : {"", "abc", "1e399x", "1,5e999", "5"})
    EXPECT_FALSE(IsOutOfRange(text, '.')) << text;
}

TEST(Numbers, RoundHalvesToEven) {
  EXPECT_EQ(RoundHalfEven(2.0 / 3, 4), 0.6667);
  EXPECT_EQ(RoundHalfEven(2.5, 0), 2);
  EXPECT_EQ(RoundHalfEven(0.03125, 4), 0.0312);
  EXPECT_EQ(RoundHalfEven(1e306, 4), 1e306);
}

/// What a box holds after typing `keys` into it, and how often it beeped.
std::pair<std::string, int> Typed(std::string text, std::u32string_view keys, char separator) {
  int beeps = 0;
  for (const char32_t key : keys) {
    const KeyOutcome outcome = Digitacao(text, key, separator);
    beeps += outcome.beep;
    if (outcome.key == U'\b')
      text.pop_back();
    else if (outcome.key != 0)
      text += static_cast<char>(outcome.key);
  }
  return {text, beeps};
}

TEST(Digitacao, LetsOnlyDecimalNumbersThrough) {
  using Result = std::pair<std::string, int>;
  EXPECT_EQ(Typed("", U"1.5.", ','), (Result{"1,5", 1}));
  EXPECT_EQ(Typed("", U"1,5", '.'), (Result{"1.5", 0}));
  EXPECT_EQ(Typed("", U"-1e+ x½", '.'), (Result{"1", 6}));
  EXPECT_EQ(Typed("123456789012", U"3.\b3", '.'), (Result{"123456789013", 2}));
  EXPECT_EQ(Typed("12345678901", U".23", '.'), (Result{"12345678901.2", 1}));
}

}  // namespace
}  // namespace velmora
