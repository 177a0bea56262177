#include <gtest/gtest.h>

#include "language/Numbers.h"
#include "language/Texts.h"

namespace velmora {
namespace {

TEST(Numbers, HaveTheShortestTextsThatReadBack) {
  struct Row {
    double value;
    const char* shortest;
    const char* str;
  };
  const Row rows[] = {{0, "0", " 0"},
                      {100, "100", " 100"},
                      {0.8, "0.8", " .8"},
                      {-0.01, "-0.01", "-.01"},
                      {0.00001, "1E-05", " 1E-05"},
                      {0.0001, "0.0001", " .0001"},
                      {-2.5e20, "-2.5E+20", "-2.5E+20"},
                      {999999999999999, "999999999999999", " 999999999999999"},
                      {1e15, "1E+15", " 1E+15"},
                      {0.1 + 0.2, "0.30000000000000004", " .30000000000000004"},
                      {5e-324, "5E-324", " 5E-324"}};
  for (const auto& [value, shortest, str] : rows) {
    EXPECT_EQ(ShortestText(value), shortest);
    EXPECT_EQ(StrText(value), str);
    EXPECT_EQ(ParseNumber(ShortestText(value), '.'), value);
    EXPECT_EQ(ReadBox(StrText(value), ','), value);
  }
}

TEST(Numbers, ShowSoManyDigits) {
  EXPECT_EQ(PlainText(0.1 + 0.2, ',', 12), "0,3");
  EXPECT_EQ(PlainText(9.999999999999998e298, '.', 12), "1E+299");
  EXPECT_EQ(PlainText(123456789, '.', 12), "123456789");
  EXPECT_EQ(PlainText(-1234.5, '.', 2), "-1200");
  EXPECT_EQ(PlainText(0, '.', 12), "0");
}

TEST(Numbers, KeepLeastAndMostDecimals) {
  EXPECT_EQ(Formatted(0.5, kTwoToFour, '.'), "0.50");
  EXPECT_EQ(Formatted(2, kOneToFour, '.'), "2.0");
  EXPECT_EQ(Formatted(0.123456, kTwoToFour, '.'), "0.1235");
  EXPECT_EQ(Formatted(0.00005, kTwoToFour, '.'), "0.0001");
  EXPECT_EQ(Formatted(0.00004, kTwoToFour, '.'), "0.00");
  EXPECT_EQ(Formatted(-0.00004, kTwoToFour, '.'), "0.00");
  EXPECT_EQ(Formatted(9.99995, kTwoToFour, '.'), "10.00");
  EXPECT_EQ(Formatted(0.03125, kFour, '.'), "0.0313");
  EXPECT_EQ(Formatted(1.00005, kFour, '.'), "1.0001");
  EXPECT_EQ(Formatted(1.5, kFour, '.'), "1.5000");
  EXPECT_EQ(Formatted(-1234.5, kFour, '.'), "-1234.5000");
  EXPECT_EQ(Formatted(1e20, Decimals{0, 2}, '.'), "100000000000000000000");
  EXPECT_EQ(Formatted(99.5, Decimals{0, 0}, '.'), "100");
  EXPECT_EQ(Formatted(0.4, Decimals{0, 0}, '.'), "0");
  EXPECT_EQ(Formatted(0.00000000000005, kTwoToThirteen, '.'), "0.0000000000001");
}

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

/// Bit n for a place {n} to be filled.
unsigned PlacesIn(std::string_view text) {
  unsigned places = 0;
  for (std::size_t i = 0; i + 2 < text.size(); ++i)
    if (text[i] == '{' && text[i + 2] == '}') places |= 1U << (text[i + 1] - '0');
  return places;
}

TEST(Texts, AreFilledWithTheSameInBothLanguages) {
  int texts = 0;
  for (int id = 100; id < 2000; ++id) {
    const TextId text{static_cast<std::int16_t>(id)};
    if (!HasText(text)) continue;
    ++texts;
    EXPECT_EQ(PlacesIn(Text(text, Language::English)), PlacesIn(Text(text, Language::Portuguese)))
        << Text(text, Language::English);
  }
  EXPECT_GT(texts, 500);
}

TEST(Numbers, RoundHalvesToEven) {
  EXPECT_EQ(RoundHalfEven(2.0 / 3, 4), 0.6667);
  EXPECT_EQ(RoundHalfEven(2.5, 0), 2);
  EXPECT_EQ(RoundHalfEven(0.03125, 4), 0.0312);
  EXPECT_EQ(RoundHalfEven(1e306, 4), 1e306);
}

}  // namespace
}  // namespace velmora
