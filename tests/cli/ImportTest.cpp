// Tables as spreadsheets save them.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cli/RunProgram.h"

namespace velmora {
namespace {

struct Case {
  const char* name;
  const char* table;
  const char* message;  // a part of the error's line
};

class Import : public testing::Test {
 protected:
  Ran ImportText(const std::string& table, const std::string& more = "") {
    WriteFile(folder_ / "table.csv", table);
    return RunCli("import " + (folder_ / "table.csv") + " -o " + File() + more);
  }
  std::string File() const { return folder_ / "out.abr"; }

  TemporaryFolder folder_;
};

TEST_F(Import, ReadsEverySeparatorAndDecimalMark) {
  const std::string expected =
      "Ajuste de par\xE2metros\r\nDados de entrada\r\n$2\r\n"
      "#7\r\nE7\r\n 2 \r\n 2.5 \r\nCircCheio\r\n 1 \r\n 1 \r\nTrue\r\n"
      "|0|20.5|0.25|0|\r\n|2.5|18|0.75|1E-05|\r\n"
      "#3\r\nE3\r\n 1 \r\n 1 \r\nCircVazio\r\n 1 \r\n 2 \r\nTrue\r\n|1|30|0|2|\r\n";
  const Case tables[] = {
      {"commas",
       "# a comment\nexperiment,t_h,Cx_g_per_L,Cs_g_per_L,Cp_g_per_L\n"
       "E7,0,0.25,20.5,0\nE7,2.5,0.75,18,0.00001\n\nE3,1,0,30,2\n",
       ""},
      {"semicolons, decimal comma, other order, ignored column",
       "Cp, g/L;note;Experimento;Tempo, h;Cs, g/L;Cx, g/L, dry\n"
       "0;first;E7;0;20,5;0,25\n0,00001;;E7;2,5;18;0,75\n2;;E3;1;30;0\n;;;;;\n",
       ""},
      {"tabs, CR LF, byte order mark",
       "\xEF\xBB\xBF"
       "exp\ttime\tCs\tCx\tCp\r\nE7\t0\t20.5\t0.25\t0\r\n"
       "E7\t2.5\t18\t0.75\t1E-5\r\nE3\t1\t30\t0\t2",
       ""},
      {"commas, quoted cells with decimal commas",
       "\"exp\",\"t (h; 0; at; inoculation)\",\"Cs; g/L\",\"Cx\",\"Cp\"\n"
       "E7,0,\"20,5\",\"0,25\",0\n\"E7\",\"2,5\",18,\"0,75\",\"1e-5\"\nE3,1,30,0,2\n",
       ""}};
  for (const Case& c : tables) {
    const Ran ran = ImportText(c.table);
    EXPECT_EQ(ran.code, 0) << c.name << ": " << ran.err;
    EXPECT_EQ(BytesOf(File()), expected) << c.name;
  }
}

TEST_F(Import, NumbersExperimentsInOrderWhereLabelsDoNot) {
  ASSERT_EQ(ImportText("exp,t,Cs,Cx,Cp\na1,0,1,2,3\nb1,0,1,2,3\nc,0,1,2,3\n", " --only b1").code,
            0);
  EXPECT_NE(BytesOf(File()).find("$1\r\n#1\r\nb1\r\n"), std::string::npos);
  ASSERT_EQ(ImportText("exp,t,Cs,Cx,Cp\na1,4,1,2,3\na1,0,1,2,3\nb1,0,1,2,3\n").code, 0);
  EXPECT_NE(BytesOf(File()).find("#1\r\na1\r\n 2 \r\n 4 \r\n"), std::string::npos)
      << "the last time";
  EXPECT_NE(BytesOf(File()).find("#2\r\nb1\r\n"), std::string::npos);
  const Ran refused = ImportText("exp,t,Cs,Cx,Cp\na1,0,1,2,3\nb1,0,1,2,3\n", " --only c");
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.find("table.csv has no experiment \"c\"; it has a1, b1"),
            std::string::npos);
}

TEST_F(Import, RefusesWhatItCannotRead) {
  const Case cases[] = {
      {"missing column", "t,Cs,Cx\n0,1,2\n", "table.csv:1: there is no column Cp"},
      {"column twice", "t,Cs,Cs_sd,Cx,Cp\n0,1,1,2,3\n", ":1: two columns begin with Cs"},
      {"empty cell", "t,Cs,Cx,Cp\n0,1,2,3\n1,1,,3\n", ":3: row 2, column Cx: the cell is empty"},
      {"short row", "t,Cs,Cx,Cp\n0,1,2\n", ":2: row 1, column Cp: the cell is empty"},
      {"no number", "t,Cs,Cx,Cp\n0,n.d.,2,3\n", ":2: row 1, column Cs: \"n.d.\" is not a number"},
      {"negative", "t,Cs,Cx,Cp\n0,1,-0.5,3\n", "column Cx: \"-0.5\" is negative"},
      {"line break in a cell", "t,note,Cs,Cx,Cp\n0,\"a\nb\",1,2,3\n1,c,x,2,3\n",
       ":4: row 2, column Cs"},
      {"infinite", "t,Cs,Cx,Cp\n0,1,2,inf\n", "\"inf\" is not a number"},
      {"huge", "t,Cs,Cx,Cp\n0,1,2,1e399\n", "column Cp: \"1e399\" is out of range"},
      {"two readings", "t;Cs;Cx;Cp\n0;1,234;2;3\n",
       "\"1,234\" may be 1.234 or 1234, and no number of the table shows which; choose with "
       "--decimal point or --decimal comma"},
      {"comma beside points", "t;Cs;Cx;Cp\n0.5;1,23;2;3\n", "\"1,23\" has another decimal mark"},
      {"unquoted decimal commas", "t,Cs,Cx,Cp\n0,1,5,2,5,3\n", "row 1 has 6 cells"},
      {"open quote", "t,Cs,Cx,Cp\n0,\"1,2,3\n", ":2: a double quote is not closed"},
      {"comma in a label", "exp,t,Cs,Cx,Cp\n\"a,b\",0,1,2,3\n",
       ":2: row 1, column exp: \"a,b\" holds"},
      {"letter", "exp,t,Cs,Cx,Cp\n\xCE\xB1,0,1,2,3\n", ":2: row 1, column exp: \"\xCE\xB1\" holds"},
      {"no rows", "t,Cs,Cx,Cp\n", "there are no rows"},
      {"nothing", "", "no header line"}};
  for (const Case& c : cases) {
    const Ran ran = ImportText(c.table);
    EXPECT_EQ(ran.code, 3) << c.name;
    EXPECT_NE(ran.err.find(c.message), std::string::npos) << c.name << ": " << ran.err;
    EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << c.name;
    EXPECT_EQ(BytesOf(File()), "") << c.name;
  }
}

TEST_F(Import, TakesMarksGivenAndTellsWhatIsNoData) {
  const std::string table = "Run of July\nt;Cs;Cx;Cp\n0;1,234;2;3\n";
  const Ran ran = ImportText(table, " --thousands comma");
  EXPECT_NE(BytesOf(File()).find("|0|1234|2|3|"), std::string::npos) << ran.err;
  EXPECT_NE(ran.out.find("table.csv:1: the line is no row of data"), std::string::npos) << ran.out;
  ImportText(table, " --decimal ,");
  EXPECT_NE(BytesOf(File()).find("|0|1.234|2|3|"), std::string::npos);
  EXPECT_EQ(ImportText(table, " --decimal comma --thousands comma").code, 2);
}

TEST_F(Import, TakesColumnsAndUnitsGiven) {
  const std::string table = "clock,biomass,a,b\n30,2,100,3\n";
  const std::string columns = " --columns t=1,Cs=a,Cp=4 --unit t=min --unit Cs=mM ";
  EXPECT_NE(ImportText(table, columns).err.find("; give --molar-mass Cs=VALUE in g/mol"),
            std::string::npos);
  const Ran ran = ImportText(table, columns + "--molar-mass Cs=180.16 --language pt");
  EXPECT_NE(BytesOf(File()).find("|0.5|18.016|2|3|"), std::string::npos) << ran.err;
  EXPECT_NE(ran.out.find("table.csv:1: t foi convertido de min para h"), std::string::npos);
  for (const char* const wrong : {" --unit t", " --unit Cz=g/L", " --molar-mass Cs=x",
                                  " --molar-mass t=1", " --columns t=1,2"})
    EXPECT_EQ(ImportText(table, wrong).code, 2) << wrong;
}

TEST_F(Import, TakesWhatBecomesOfGaps) {
  const std::string table = "t,Cs,Cx,Cp\n0,1,2,3\n1,,2,3\n2,3,2,3\n";
  EXPECT_NE(ImportText(table).err.find("or choose --missing drop-row"), std::string::npos);
  const Ran ran = ImportText(table, " --missing interpolate");
  EXPECT_NE(ran.out.find(":3: row 2, column Cs: there is no value; 2 was interpolated"),
            std::string::npos);
  EXPECT_NE(BytesOf(File()).find("|1|2|2|3|"), std::string::npos);
  ImportText(table, " --missing drop-row");
  EXPECT_NE(BytesOf(File()).find("|0|1|2|3|\r\n|2|3|2|3|"), std::string::npos);
}

TEST_F(Import, ReadsManyFilesAndStandardStreams) {
  const std::string other = folder_ / "run 3.csv", copy = folder_ / "copy.abr";
  WriteFile(other, "t,Cs,Cx,Cp\n0,4,5,6\n2,3,6,7\n");
  ASSERT_EQ(ImportText("t,Cs,Cx,Cp\n0,1,2,3\n").code, 0);
  const std::string table = folder_ / "table.csv";
  const Ran ran = Program({"import", table, other, "-o", "-"}).Wait();
  EXPECT_NE(ran.out.find("#1\r\ntable\r\n"), std::string::npos) << ran.out;
  EXPECT_NE(ran.out.find("#2\r\nrun 3\r\n"), std::string::npos);
  EXPECT_NE(ran.err.find("experiment 1: the final time is 0 h"), std::string::npos) << ran.err;
  EXPECT_EQ(Program({"import", table, "-o", "-", "--quiet"}).Wait().err, "");
  WriteFile(copy, ran.out);
  EXPECT_NE(Program({"check", "-"}, {.in = copy}).Wait().out.find("\"run 3\""), std::string::npos);
  EXPECT_EQ(Program({"import", table, "-o", copy, "--limit", "0.00001"}).Wait().code, 3);
  EXPECT_EQ(BytesOf(copy), ran.out);
  EXPECT_EQ(Program({"fit", "-", "-"}).Wait().code, 2);
}

TEST_F(Import, RefusesMorePointsThanItsFileCounts) {
  std::string table = "t,Cs,Cx,Cp\n";
  for (int point = 0; point < 32768; ++point) table += "0,1,2,3\n";
  EXPECT_NE(ImportText(table).err.find("table.csv:32769: "), std::string::npos);
  EXPECT_EQ(BytesOf(File()), "");
}

}  // namespace
}  // namespace velmora
