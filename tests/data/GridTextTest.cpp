// What is typed and pasted into the entry grid and its boxes, and what it becomes.
#include <gtest/gtest.h>

#include <optional>

#include "data/ExperimentEntry.h"
#include "data/GridText.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

TEST(GridText, CutsABlockIntoRowsAndCells) {
  const GridBlock two = {{"1", "2"}, {"", "4"}};
  for (const char* text : {"1\t2\r\n\t4\r\n", "1\t2\n\t4\n", "1\t2\r\t4\r", "1\t2\n\t4"})
    EXPECT_EQ(ParseBlock(text), two) << text;
  EXPECT_EQ(ParseBlock("1\r\n\r\n2\n\n"), (GridBlock{{"1"}, {""}, {"2"}, {""}}));
  EXPECT_TRUE(ParseBlock("").empty());
  EXPECT_EQ(BlockText(two), "1\t2\r\n\t4\r\n");
}

TEST(GridText, ReadsPointAndCommaAndNoThousands) {
  for (const char* text : {"1.5", "1,5", " 1.5 ", "15E-1", "0,15e1", "+1.5"})
    EXPECT_EQ(CellNumber(text), 1.5) << text;
  EXPECT_EQ(CellNumber("-,5"), -0.5);
  EXPECT_EQ(CellNumber("6,66E-08"), 6.66e-8);
  for (const char* text : {"", " ", "1.234,5", "1,234.5", "1.234.567", "1 000", "1\u00A0000",
                           "1.2.", "abc", "0x1F", "nan", "inf", "1e999", "2 g"})
    EXPECT_EQ(CellNumber(text), std::nullopt) << text;
}

TEST(GridText, ReadsPointsDownToTheLastText) {
  const std::vector<GridRow> rows = {{"0", "100", "0.5", "1"}, {"2", "90", "0,6", "3"}, {}, {}};
  const GridPoints read = ReadPoints(rows);
  EXPECT_FALSE(read.badCell);
  EXPECT_EQ(read.points, (Experiment{0, "", {0, 2}, {0.5, 0.6}, {100, 90}, {1, 3}}));
}

TEST(GridText, NamesTheFirstCellThatIsNoNumber) {
  const GridRow good = {"0", "1", "2", "3"};
  EXPECT_EQ(ReadPoints(std::vector<GridRow>{good, {"1", "", "2", "x"}}).badCell, (GridCell{1, 1}));
  EXPECT_EQ(ReadPoints(std::vector<GridRow>{{}, good}).badCell, (GridCell{0, 0}));
  const auto told = [&](const GridRow& second) {
    const auto read = ReadEntry({"3", "", "1"}, std::vector<GridRow>{good, second}, '.');
    return read.refusal ? Worded(read.refusal->message, Language::English) : "";
  };
  EXPECT_EQ(told({"1", "2", "x", "4"}),
            "Possibilities of error:\nRow 2 holds the text \"x\" under Cx (g/L), not a number.");
  EXPECT_EQ(
      told({"0", "1,5e399", "2", "3"}),
      "Possibilities of error:\nRow 2 holds \"1,5e399\" under Cs (g/L), which is out of range.");
  EXPECT_NE(Worded(ReadEntry({"3", "", "1e-400"}, {}, '.').refusal->message, Language::English)
                .find("\"1e-400\" is out of range"),
            std::string::npos);
}

TEST(GridText, ShowsEveryDoubleSoThatItReadsBack) {
  const Experiment shown{
      0, "", {0, 1.0 / 3}, {2.5e20, -0.1}, {1e-300, 123456.789}, {6.66e-8, 5e-324}};
  for (const char separator : {'.', ','}) {
    const std::vector<GridRow> rows = RowsOf(shown, separator);
    EXPECT_EQ(rows[1][1], separator == '.' ? "123456.789" : "123456,789");
    EXPECT_EQ(ReadPoints(rows).points, shown);
  }
}

TEST(ExperimentEntry, ReadsTheBoxes) {
  const EntryRead read = ReadEntry({"7", "Lote 3", "24,5"}, {}, ',');
  EXPECT_FALSE(read.refusal);
  EXPECT_EQ(read.experiment, (Experiment{7, "Lote 3", {}, {}, {}, {}, 24.5, true}));
  EXPECT_EQ(ReadEntry({"32767", "", ""}, {}, '.').experiment.finalTime, 0);
  const std::vector<GridRow> unsorted = {
      {"0", "9", "1", "0"}, {"6", "3", "2", "1"}, {"4", "5", "2", "1"}};
  EXPECT_EQ(ReadEntry({"1", "", " "}, unsorted, '.').experiment.finalTime, 6)
      << "the last sample's";
  for (const char* number : {"", "0", "-1", "32768", "1.5", "1x"})
    EXPECT_EQ(ReadEntry({number, "", ""}, {}, '.').refusal.value().box, EntryBox::Number) << number;
  EXPECT_EQ(ReadEntry({"1", "", "."}, {}, '.').refusal.value().box, EntryBox::FinalTime);
}

TEST(ExperimentEntry, OffersAFreeNumber) {
  EXPECT_EQ(NextFreeNumber({}), 1);
  EXPECT_EQ(NextFreeNumber(test::Lists({1, 6, -4})), 7);
  EXPECT_EQ(NextFreeNumber(test::Lists({32767, 1, 6})), 2);
}

TEST(ExperimentEntry, RefusesABlockThatRunsOverTheEdges) {
  const GridBlock row = {{"1", "2", "", ""}};
  EXPECT_FALSE(RefuseBlock(row, {0, 2}));
  EXPECT_EQ(Worded(*RefuseBlock(row, {0, 3}), Language::English),
            "Possibilities of error:\nExperimental data: 2 > 1 (Cp (g/L))");
  EXPECT_FALSE(RefuseBlock(row, {32766, 0}));
  EXPECT_EQ(Worded(*RefuseBlock(row, {32767, 0}), Language::English),
            "Possibilities of error:\nPoints number: 32768 > 32767");
}

TEST(Description, TakesWhatItsFileCanGiveBack) {
  struct Row {
    const char* pasted;
    const char* fitting;
    bool leftOut;
  };
  for (const Row& row :
       {Row{"glicose, 100 g/L", "glicose; 100 g/L", false},
        Row{"\r\n  a\r\nb\nc\rd\te", "a b c d e", false},
        Row{"a\u0081\u009D", "a\u0081\u009D", false},
        Row{"Fermentação “€” µ", "Fermentação “€” µ", false},
        Row{"β-glucan 発酵 a\x01\x7F", "-glucan  a", true}, Row{"a\xC3", "a", true}}) {
    const DescriptionText fitting = FittingDescription(row.pasted);
    EXPECT_EQ(fitting.text, row.fitting);
    EXPECT_EQ(fitting.lettersLeftOut, row.leftOut) << row.pasted;
  }
  EXPECT_TRUE(MayBeTyped("ç", true) && MayBeTyped(" ", false));
  EXPECT_FALSE(MayBeTyped(",", false) || MayBeTyped(" ", true) || MayBeTyped("β", false));
}

}  // namespace
}  // namespace velmora
