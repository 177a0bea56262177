// The cultivation-conditions file in both directions, and what reading says about one that is none.
#include <gtest/gtest.h>

#include <algorithm>

#include "cultivation/ConditionsFile.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/OpenedConditions.h"
#include "data/ExperimentFile.h"
#include "data/Windows1252.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

/// The 31 lines of a row whose first value is `first` and whose others are 0.
std::string RowLines(const std::string& first) {
  std::string lines = first + "\r\n";
  for (int position = 2; position <= 31; ++position) lines += "0\r\n";
  return lines;
}

const std::string kFitted = "2\r\n0.9\r\n0.05\r\n8\r\n0.5\r\n1E-05\r\n1E-06\r\n17\r\n2E-06\r\n";
// E2, E7 and F5 are â, ç and õ.
const std::string kTitles = "Ajuste de par\xE2metros\r\nCondi\xE7\xF5\x65s de cultivo\r\n";
const std::string kBlocks = "$2\r\n#1\r\n" + RowLines("0.25") +
                            "ED\r\nCx Cs Cp\r\nPAC\r\nMonod\r\nMiMax v\r\n" + kFitted + "#3\r\n" +
                            RowLines("-4") + "Manual\r\n\r\nPPAC\r\n\r\n\r\n" + kFitted;

CultivationConditions TwoConditions() {
  CultivationConditions conditions;
  conditions.At(1) = {true, 1, {{0.25}}, {"ED", "Cx Cs Cp", "PAC", "Monod", "MiMax v"}};
  conditions.At(2) = {true, 3, {{-4}}, {"Manual", "", "PPAC", "", ""}};
  conditions.fitted = {{At::muMax, 0.05, 0.9, 0.5}, {At::v, 1e-6, 1e-5, 2e-6}};
  return conditions;
}

TEST(ConditionsFile, IsWrittenAndReadByteForByte) {
  const TemporaryFolder folder;
  const std::string path = folder / "c.abr";
  ASSERT_FALSE(WriteConditions(TwoConditions(), 2, true, path));
  EXPECT_EQ(BytesOf(path), kTitles + "Batelada\r\n" + kBlocks);
  ConditionsRead read = ReadConditions(path);
  EXPECT_TRUE(!read.fault && read.experiments == 2);
  EXPECT_EQ(read.conditions, TwoConditions());
  // Without the third title the count is passed over, and the file reads as no experiments.
  ASSERT_FALSE(WriteConditions(TwoConditions(), 2, false, path));
  EXPECT_EQ(BytesOf(path), kTitles + kBlocks);
  read = ReadConditions(path);
  EXPECT_TRUE(!read.fault && read.experiments == 0);
  EXPECT_EQ(read.conditions, CultivationConditions());
}

TEST(ConditionsFile, IsToldFromAnExperimentFile) {
  ExperimentLists lists;
  const ExperimentsRead asExperiments =
      ReadExperimentBytes(kTitles + "Batelada\r\n" + kBlocks, "c.abr", lists);
  EXPECT_EQ(asExperiments.fault->reason, FileReason::HoldsConditions);
  EXPECT_EQ(asExperiments.fault->line, 2);
  const ConditionsRead asConditions = ReadConditionsBytes(ExperimentText(lists), "e.abr");
  EXPECT_EQ(asConditions.fault->reason, FileReason::HoldsExperiments);
}

TEST(ConditionsFile, IsRefusedWholeWithLineAndField) {
  using enum FileReason;
  using enum FileField;
  const std::string block = "#1\r\n" + RowLines("1") + "ED\r\n\r\n\r\n\r\n\r\n";
  const auto expectFault = [](const std::string& blocks, FileReason reason, int line,
                              FileField field, int item, const std::string& detail) {
    const auto read = ReadConditionsBytes("T\r\nT\r\nBatelada\r\n" + blocks, "c.abr");
    EXPECT_EQ(read.fault, (FileFault{reason, "c.abr", line, field, item, detail})) << blocks;
    EXPECT_EQ(read.experiments, 0);
    EXPECT_EQ(read.conditions, CultivationConditions());
  };
  expectFault("", EndOfFile, 4, ExperimentCount, 0, "");
  expectFault("$10\r\n", TooManyExperiments, 4, ExperimentCount, 0, "$10");
  EXPECT_FALSE(ReadConditionsBytes("T\r\nT\r\nBatelada\r\n$0\r\n", "c.abr").fault);
  expectFault("$-1\r\n", OutOfRange, 4, ExperimentCount, 0, "-1");
  expectFault("$1\r\n#1\r\n" + RowLines("NaN"), NotANumber, 6, Condition, 1, "NaN");
  expectFault("$1\r\n" + block + "11\r\n", OutOfRange, 42, FittedCount, 0, "11");
  expectFault("$1\r\n" + block + "1\r\n1\r\n1\r\n7\r\n", OutOfRange, 45, ParameterCode, 1, "7");
  expectFault("$1\r\n" + block + "1\r\n1\r\n1\r\n18\r\n", OutOfRange, 45, ParameterCode, 1, "18");
  expectFault("$1\r\n" + block + "2\r\n1\r\n1\r\n9\r\n1\r\n1\r\n1\r\n9\r\n1\r\n", FittedTwice, 49,
              ParameterCode, 2, "9");
  expectFault("$2\r\n" + block + "0\r\n", EndOfFile, 43, ExperimentNumber, 0, "");
}

TEST(ConditionsFile, IsNotWrittenWhereItCouldNotBeRead) {
  const TemporaryFolder folder;
  const std::string path = folder / "c.abr";
  CultivationConditions conditions = TwoConditions();
  EXPECT_EQ(WriteConditions(conditions, 10, true, path)->reason, FileReason::TooManyExperiments);
  conditions.At(2).options.model = "Mo\nnod";
  EXPECT_EQ(WriteConditions(conditions, 2, true, path)->reason, FileReason::LineBreakInText);
  EXPECT_EQ(ReadConditions(path).fault->reason, FileReason::CannotOpen);
}

/// In a file v, Cp*, Cx*, n and m may stand in any order; what is fitted follows the check boxes.
TEST(ConditionsFile, GivesTheFittedParametersInTableOrder) {
  std::string fitted = "5\r\n";
  for (const char* code : {"17", "14", "12", "15", "13"})
    fitted += std::string("2\r\n1\r\n") + code + "\r\n0." + code + "\r\n";
  const ConditionsRead read = ReadConditionsBytes(
      "T\r\nT\r\nBatelada\r\n$1\r\n#1\r\n" + RowLines("1") + "ED\r\n\r\nPAC\r\n\r\n\r\n" + fitted,
      "");
  EXPECT_EQ(read.conditions.fitted, (std::vector<FitVariable>{{At::CpAst, 1, 2, 0.13},
                                                              {At::CxAst, 1, 2, 0.12},
                                                              {At::n, 1, 2, 0.15},
                                                              {At::m, 1, 2, 0.14},
                                                              {At::v, 1, 2, 0.17}}));
}

std::vector<std::string> ToldOf(const OpenedConditions& opened) {
  std::vector<std::string> told;
  for (const Message& message : opened.messages) told.push_back(Worded(message, Language::English));
  return told;
}

TEST(ConditionsFile, TellsWhatStandsForNoChoiceAndSelectsNothing) {
  std::string row;
  for (int position = 1; position <= 31; ++position) row += position == 30 ? "0.5\r\n" : "2\r\n";
  const ConditionsRead read = ReadConditionsBytes(
      "T\r\nT\r\nBatelada\r\n$1\r\n#1\r\n" + row + "ed\r\nCy\r\nPCA\r\nMonod2\r\n\r\n0\r\n",
      "c.abr");
  const auto remark = [](int line, FileField field, int item, const std::string& found) {
    return FileFault{FileReason::UnknownChoice, "c.abr", line, field, item, found};
  };
  EXPECT_FALSE(read.fault);
  EXPECT_EQ(read.remarks, (std::vector<FileFault>{remark(35, FileField::Condition, 30, "0.5"),
                                                  remark(37, FileField::OptionText, 1, "ed"),
                                                  remark(39, FileField::OptionText, 3, "PCA"),
                                                  remark(40, FileField::OptionText, 4, "Monod2")}));
  const CultivationForm form = FormOf(read.conditions.At(1), {}, '.');
  EXPECT_EQ(form.method, Method::None);
  EXPECT_EQ(form.production, Production::None);
  EXPECT_EQ(form.yields, Yields::None);
  std::string told;
  for (const char* const where :
       {"Line 35, value 30 of the conditions: \"0.5\"", "\nLine 37, option text 1: \"ed\"",
        "\nLine 39, option text 3: \"PCA\"", "\nLine 40, option text 4: \"Monod2\""})
    told += std::string(where) +
            " is not known and selects nothing; choose, and save the conditions again";
  const auto messages = ToldOf(CompareWithLists(read, test::Lists({1}).Experiments()));
  EXPECT_EQ(std::count(messages.begin(), messages.end(), told), 1);
}

TEST(ConditionsFile, RecognisesNoModelByAnUnknownName) {
  ConditionsRecord record;
  SetModelSwitches(*FindModel("Contois"), record.row);
  EXPECT_EQ(RecognisedModel(record, {}), FindModel("Contois")) << "by its switches";
  record.options.model = "Contois-Monod";
  EXPECT_EQ(RecognisedModel(record, {}), nullptr);
}

/// Monod conditions of so many experiments, whose fit starts from the rows' own values.
ConditionsRead ReadFor(std::initializer_list<std::int16_t> numbers) {
  ConditionsRead read;
  for (const std::int16_t number : numbers) {
    ConditionsRecord& record = read.conditions.At(++read.experiments);
    record.number = number;
    record.options.model = "Monod";
    record.row[At::muMax] = 0.2, record.row[At::Ks] = 10;
    SetModelSwitches(*FindModel("Monod"), record.row);
  }
  read.conditions.fitted = {{At::muMax, 0.05, 1, 0}, {At::Ks, 1, 30, 0}};
  return read;
}

TEST(OpenedConditions, NameTheExperimentsThatTheyMatch) {
  const std::vector<Experiment> experiments = test::Lists({4, 7, 5}).Experiments();
  ConditionsRead read = ReadFor({4, 9, 5});
  read.conditions.At(3).row[At::Ks] = 31;  // beyond its bounds
  const OpenedConditions opened = CompareWithLists(read, experiments);
  EXPECT_EQ(opened.conditions.At(2).number, 7) << "they are now this experiment's";
  const auto told = ToldOf(opened);
  ASSERT_EQ(told.size(), 2U);
  EXPECT_NE(told[0].find(" 4 "), std::string::npos) << told[0];
  EXPECT_NE(told[1].find(" 7, 5 "), std::string::npos) << told[1];

  read.conditions.At(1).options.model = "";  // Monod, or Moser with u = 1
  EXPECT_EQ(ToldOf(CompareWithLists(read, experiments)).size(), 3U);
}

}  // namespace
}  // namespace velmora
