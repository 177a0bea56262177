// Tables on their way from the clipboard into the entry grid.
#include <gtest/gtest.h>

#include "data/ExperimentEntry.h"
#include "data/PastedTable.h"

namespace velmora {
namespace {

TEST(PastedTable, IsCutWhereItsTextIsSeparated) {
  struct Row {
    const char* text;
    GridBlock block;
  };
  for (const auto& [text, block] :
       {Row{"1,5\t2\n3,5\t4\n", {{"1,5", "2"}, {"3,5", "4"}}},
        Row{"1,5;2\n3,5;4\n", {{"1,5", "2"}, {"3,5", "4"}}},
        Row{"0,75,1\n2,70,3\n", {{"0", "75", "1"}, {"2", "70", "3"}}},
        Row{"0.5,75\n2,70\n", {{"0.5", "75"}, {"2", "70"}}},
        Row{"t,Cs\n2,70\n", {{"t", "Cs"}, {"2", "70"}}},
        Row{"a,b\n2,70\n", {{"a", "b"}, {"2", "70"}}}, Row{"\"a;b\";2\n", {{"a;b", "2"}}},
        Row{"\"1\"\t\"2.5\"\n", {{"1", "2.5"}}},
        Row{"1,5\n2,5\n", {{"1,5"}, {"2,5"}}},  // decimal commas
        Row{"1,5", {{"1,5"}}}})
    EXPECT_EQ(SplitPasted(text), block) << text;
}

TEST(PastedTable, GoesWhereItsHeadersSay) {
  const PastedTable some = ReadPasted("Biomass\tt (h)\n0,5\t0\n3\t10\n", ',');
  ASSERT_TRUE(some.named && some.parts.size() == 2 && !some.question);
  EXPECT_EQ(some.parts[0].column, 0);
  EXPECT_EQ(some.parts[0].block, (GridBlock{{"0"}, {"10"}}));
  EXPECT_EQ(some.parts[1].column, 2);
  const PastedTable all = ReadPasted("t (min),Cx,Cp,Cs (g/L)\n0,0.5,0,60\n90,3,4,40\n", '.');
  ASSERT_EQ(all.parts.size(), 1U);
  EXPECT_EQ(all.parts[0].block, (GridBlock{{"0", "60", "0.5", "0"}, {"1.5", "40", "3", "4"}}));
  EXPECT_TRUE(all.remark) << "minutes became hours";

  const PastedTable odd = ReadPasted("Foo\tBar\n1\t2\n3\t4\n", '.');
  ASSERT_TRUE(odd.question);
  EXPECT_NE(Worded(*odd.question, Language::English).find("\"Foo\""), std::string::npos);
  EXPECT_EQ(odd.parts.at(0).block, (GridBlock{{"1", "2"}, {"3", "4"}}));
  EXPECT_FALSE(ReadPasted("1\t2\n3\t4\n", '.').question);
  EXPECT_FALSE(ReadPasted("t\tCs\n", '.').named) << "a header without rows is text";
}

TEST(PastedTable, ShowsCellsAndSubstrateExchanged) {
  GridBlock block = {{"0", "0.5", "60", "0"}, {"10", "3", "40", "4"}, {"30", "20", "2", "25"}};
  EXPECT_TRUE(LooksExchanged(block, 0));
  Exchange(block, 0);
  EXPECT_EQ(block[2], (std::vector<std::string>{"30", "2", "20", "25"}));
  EXPECT_FALSE(LooksExchanged(block, 0));
  EXPECT_FALSE(LooksExchanged(block, 2)) << "other columns stand there";
  const auto exchanged = [](const char* Cs, const char* Cx) {
    return LooksExchanged({{"0", "1", "50", "0"}, {"5", "2", "45", "1"}, {"9", Cs, Cx, "2"}}, 0);
  };
  EXPECT_TRUE(exchanged("4", "40")) << "little substrate went, and much of it came";
  EXPECT_FALSE(exchanged("1.1", "48")) << "scatter";
}

TEST(ExperimentEntry, NamesAllThatIsNoNumberAtOnce) {
  const std::vector<GridRow> rows = {{"Time (h)", "Cs", "1", "0"}, {"2", "", "1e999", "0"}, {}};
  const EntryRead read = ReadEntry({"1", "", "x"}, rows, '.');
  ASSERT_TRUE(read.refusal);
  EXPECT_EQ(read.refusal->box, EntryBox::FinalTime) << "the first of them";
  const std::string text = Worded(read.refusal->message, Language::English);
  for (const char* sentence : {"Row 1 holds the text \"Time (h)\" under t (h), not a number.",
                               "Row 1 holds the text \"Cs\" under Cs (g/L), not a number.",
                               "Row 2 has no value under Cs (g/L).",
                               "Row 2 holds \"1e999\" under Cx (g/L), which is out of range."})
    EXPECT_NE(text.find(sentence), std::string::npos) << text;
  EXPECT_EQ(text.find("Row 3"), std::string::npos) << "an empty end is none";
}

}  // namespace
}  // namespace velmora
