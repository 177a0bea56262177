// What reading an experiment file says about a file that is none.
#include <gtest/gtest.h>

#include "data/ExperimentFile.h"

namespace velmora {
namespace {

using enum FileReason;

const std::string kHeader = "T\nT\n$1\n";
const std::string kBlock = "#1\nfirst\n1\n24\nCircCheio\n1\n1\nTrue\n|0|1|2|3|\n";

/// A file whose only block has `point` for its second point.
std::string WithPoint(const std::string& point) {
  return kHeader + "#1\n\n2\n24\nCircCheio\n1\n1\nTrue\n|0|1|2|3|\n" + point + "\n";
}

struct Malformed {
  std::string bytes;
  FileReason reason;
  int line;
  FileField field;
  int item;
  std::string detail;
  int appended = 0;
};

using enum FileField;
const Malformed kRows[] = {
    {"", EndOfFile, 1, Title, 0, ""},
    {"T\nT\n$\n", NotANumber, 3, ExperimentCount, 0, ""},
    {"T\nT\n$-1\n", OutOfRange, 3, ExperimentCount, 0, "-1"},
    {"T\nT\n$1e399\n", OutOfRange, 3, ExperimentCount, 0, "1e399"},
    {"T\nT\n$2000000000\n" + kBlock, EndOfFile, 13, ExperimentNumber, 0, "", 1},
    // The title alone does not make it a conditions file.
    {"T\nCondi\xE7\xF5\x65s de cultivo\n$2\n" + kBlock, EndOfFile, 13, ExperimentNumber, 0, "", 1},
    {"T\nT\n" + std::string(10'000'000, '7') + "x", NotANumber, 3, ExperimentCount, 0,
     std::string(40, '7')},
    {kHeader + "#1.5\n", NotAWholeNumber, 4, ExperimentNumber, 0, "1.5"},
    {kHeader + "#1\n\n32767\n2\nM\n1\n1\nTrue\n", EndOfFile, 12, Point, 1, ""},
    {kHeader + "#1\n\n32768\n", OutOfRange, 6, PointCount, 0, "32768"},
    // The comma makes 3 the number of points, 0 the final time and 24 the marker.
    {kHeader + "#1\nglucose, 3\n 0 \n 24 \nCircCheio\n", NotANumber, 8, Line, 0, "CircCheio"},
    {WithPoint("|1|NaN|0|0|"), NotANumber, 13, Point, 2, "NaN"},
    {WithPoint("|1|1e999|0|0|"), OutOfRange, 13, Point, 2, "1e999"},
    {WithPoint("|1|1|1e-999|0|"), OutOfRange, 13, Point, 2, "1e-999"},
    {WithPoint("|1|0| |0|"), NotANumber, 13, Point, 2, " "},
    {WithPoint("|1|2|3|4"), MissingBar, 13, Point, 2, "|1|2|3|4"},
    {WithPoint(""), MissingBar, 13, Point, 2, ""},
    {"\xEF\xBB\xBFT\nT\n$1\n#1\nca\xE7\x61\n", BadByte, 5, Description, 0, "0xE7"},
    {"\xEF\xBB\xBFT\nT\n$2\n" + kBlock + "#2\n\x81\n", BadByte, 14, Description, 0, "0x81", 1},
};

TEST(ExperimentFile, IsFaultedByLineAndFieldAndKeepsWhatWasReadBefore) {
  for (const Malformed& row : kRows) {
    SCOPED_TRACE(row.bytes.substr(0, 100));
    ExperimentLists lists;
    const ExperimentsRead read = ReadExperimentBytes(row.bytes, "file.abr", lists);
    EXPECT_EQ(read.fault,
              (FileFault{row.reason, "file.abr", row.line, row.field, row.item, row.detail}));
    EXPECT_EQ(read.appended, row.appended);
    EXPECT_EQ(lists.Count(), row.appended);
  }
}

TEST(ExperimentFile, TakesWhatIsUnusualButNotWrong) {
  ExperimentLists lists;
  const auto read =
      ReadExperimentBytes("T,T,x$1\n 7, a b ,1,,Star,-3,99,true\n  x+1||-.5|2e1| rest", "", lists);
  ASSERT_FALSE(read.fault) << read.fault->line << read.fault->detail;
  ASSERT_EQ(lists.Count(), 1);
  EXPECT_EQ(lists.At(1), (Experiment{7, "a b ", {1}, {-.5}, {0}, {20}, 0, true}));
  EXPECT_EQ(lists.Display(1), (DisplayEntry{"Star", 99, -3, true}));
}

TEST(ExperimentFile, IsRefusedWhereTheListsAreFull) {
  ExperimentLists lists;
  while (lists.Append({}, {})) {
  }
  const auto read = ReadExperimentBytes(kHeader + kBlock, "", lists);
  EXPECT_EQ(read.fault.value().reason, OutOfRange);
  EXPECT_EQ(read.appended, 0);
  EXPECT_EQ(lists.Count(), 32767);
}

}  // namespace
}  // namespace velmora
