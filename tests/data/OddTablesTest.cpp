// Tables as people have them, and what is read or said of each.
#include <gtest/gtest.h>

#include <ostream>

#include "data/MeasuredTable.h"
#include "language/Numbers.h"
#include "tests/data/FileTesting.h"

namespace velmora {
namespace {

using namespace std::string_literals;

struct OddTable {
  const char* name;
  std::string bytes;
  std::string read;  // "LABEL: t Cs Cx Cp | t Cs Cx Cp", or a part of what is said where none is
  std::string told = "";  // "LINE " of each remark
  TableOptions options = {};
};

void PrintTo(const OddTable& table, std::ostream* out) {
  *out << table.name;
}

std::string Points(const Experiment& experiment) {
  std::string text;
  for (std::size_t i = 0; i < experiment.time.size(); ++i) {
    text += i == 0 ? "" : " |";
    for (const double value :
         {experiment.time[i], experiment.Cs[i], experiment.Cx[i], experiment.Cp[i]})
      text += " " + ShortestText(value);
  }
  return text;
}

std::string Content(const TableRead& read) {
  if (read.fault)
    return std::to_string(read.fault->line) + ": " + FaultReason(*read.fault, Language::English);
  std::string text;
  for (const Experiment& experiment : read.lists.Experiments())
    text += (text.empty() ? "" : "; ") + experiment.description + ":" + Points(experiment);
  return text;
}

/// A text in ASCII as UTF-16, the low byte first or last.
std::string Utf16(std::string_view text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

class OddTables : public testing::TestWithParam<OddTable> {};

TEST_P(OddTables, AreReadOrRefusedInWords) {
  const OddTable& table = GetParam();
  const TableRead read = ReadTable(table.bytes, table.options);
  std::string told;
  for (const TableFault& remark : read.remarks) told += std::to_string(remark.line) + " ";
  EXPECT_EQ(told, table.told);
  if (read.fault)
    EXPECT_NE(Content(read).find(table.read), std::string::npos) << Content(read);
  else
    EXPECT_EQ(Content(read), table.read);
}

INSTANTIATE_TEST_SUITE_P(
    Marks, OddTables,
    testing::Values(
        OddTable{"points show commas between thousands",
                 "t,Cs,Cx,Cp\n0.5,\"1,234\",2,\"12,345,678\"\n", ": 0.5 1234 2 12345678"},
        OddTable{"commas show points between thousands", "t;Cs;Cx;Cp\n0,5;1.234;2,25;1.234,5\n",
                 ": 0.5 1234 2.25 1234.5"},
        OddTable{"a later row shows the mark", "t,Cs,Cx,Cp\n0,\"1,234\",2,3\n1,\"1,234.5\",2,3\n",
                 ": 0 1234 2 3 | 1 1234.5 2 3"},
        OddTable{"a leading zero shows the mark", "t;Cs;Cx;Cp\n0;12,345;0,125;3\n",
                 ": 0 12.345 0.125 3"},
        OddTable{"blanks between thousands", "t;Cs;Cx;Cp\n0;1 234,567;2;1\u202F000\n",
                 ": 0 1234.567 2 1000"},
        OddTable{"a point in a comma table", "t,Cs,Cx,Cp\n0,1.234,2,3\n", ": 0 1.234 2 3"},
        OddTable{"a lone quoted comma", "t,Cs,Cx,Cp\n0,\"1,234\",2,3\n",
                 "2: row 1, column Cs: \"1,234\" may be 1.234 or 1234"},
        OddTable{"a lone point between semicolons", "t;Cs;Cx;Cp\n0;1.234;2;3\n",
                 "2: row 1, column Cs: \"1.234\" may be 1.234 or 1234"},
        OddTable{"the decimal mark given",
                 "t;Cs;Cx;Cp\n0;1,234;2;3\n",
                 ": 0 1.234 2 3",
                 "",
                 {.decimal = ','}},
        OddTable{"the thousands given",
                 "t;Cs;Cx;Cp\n0;1,234;2;3\n",
                 ": 0 1234 2 3",
                 "",
                 {.thousands = Thousands::Comma}},
        OddTable{"no thousands",
                 "t;Cs;Cx;Cp\n0;1,234;2;3\n",
                 ": 0 1.234 2 3",
                 "",
                 {.thousands = Thousands::None}},
        OddTable{"two decimal marks", "t;Cs;Cx;Cp\n0;1,5;2;3\n1;1.5;2;3\n",
                 "3: row 2, column Cs: \"1.5\" has another decimal mark"},
        OddTable{"groups of two", "t;Cs;Cx;Cp\n0;1.23.456,5;2;3\n",
                 "\"1.23.456,5\" is not a number"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, OddTables,
    testing::Values(
        OddTable{"a separator line", "sep=;\r\nt;Cs;Cx;Cp\r\n0;1;2;3\r\n", ": 0 1 2 3"},
        OddTable{"a separator of its own", "sep=|\nt|Cs, g/L|Cx, g/L|Cp, g/L\n0|1|2|3\n",
                 ": 0 1 2 3"},
        OddTable{"UTF-16, low byte first", Utf16("t\tCs\tCx\tCp\r\n0\t1\t2\t3\r\n", false),
                 ": 0 1 2 3"},
        OddTable{"UTF-16, high byte first", Utf16("t;Cs;Cx;Cp\n0;1,5;2;3\n", true), ": 0 1.5 2 3"},
        OddTable{"UTF-16 cut short", Utf16("t,Cs,Cx,Cp\n0,1,2,3\n", false) + "4",
                 "3: the table is not whole UTF-16"},
        OddTable{"half of a UTF-16 pair", Utf16("t,Cs,Cx,Cp\n", false) + "\x3D\xD8"s,
                 "2: the table is not whole UTF-16"},
        OddTable{"a UTF-8 mark and another encoding", "\xEF\xBB\xBF\nt,Cs,Cx,Cp\n0,1,\xE7,3\n",
                 "3: the table is not UTF-8"},
        OddTable{"Windows-1252",
                 "Ensaio;Tempo;Substrato;C\xE9lulas;Produto\nfermenta\xE7\xE3o;0;1;2;3\n",
                 "fermentação: 0 1 2 3", "0 1 1 1 1 "},
        OddTable{"old line ends", "# remark\rt,note,Cs,Cx,Cp\r\r0,\"two\rlines\",1,2,3\r1,,1,2,x\r",
                 "6: row 2, column Cp"},
        OddTable{"an exponent shows the mark", "t;Cs;Cx;Cp\n0;1,234E1;2;3\n", ": 0 12.34 2 3"},
        OddTable{
            "titles, blank columns, footers",
            "Batch 3; July, August\n\n;t;;Cs;Cx;Cp;\n# weighed\n;0;;1;2;3;\n;;;;;;\n;1;;4;5;6\n"
            "Mean;;;2,5;3,5;4,5\n\"by hand\"\n",
            ": 0 1 2 3 | 1 4 5 6", "1 8 9 "},
        OddTable{"a gap for the last time is no footer", "exp,t,Cs,Cx,Cp\na,0,1,2,3\na,,4,5,6\n",
                 "3: row 2, column t: the cell is empty"},
        OddTable{"remarks amid the data", "t,Cs,Cx,Cp\n0,1,2,3\nfed here\n1,4,5,6\n",
                 "3: row 2, column t: \"fed here\" is not a number"},
        OddTable{"a title alone", "Batch 3\n", "1: there is no column t"}));

TableOptions Columns(const char* t, const char* Cs, const char* Cx, const char* Cp) {
  return {.columns = {std::nullopt, t, Cs, Cx, Cp}};
}

// Values by hand: 90 min are 1.5 h, 7.3 mg/L are 0.0073 g/L, 100 mM of 180.16 g/mol are 18.016 g/L.
INSTANTIATE_TEST_SUITE_P(
    Headers, OddTables,
    testing::Values(
        OddTable{"English names",
                 "Batch,Ethanol (g/L),Time,Residual sugar,Cell concentration\n"
                 "b1,0.5,1,20,3\n",
                 "b1: 1 20 3 0.5", "1 1 1 1 "},
        OddTable{"Portuguese names", "TEMPO;SUBSTRATO;CÉLULAS;PRODUTO\n1;20,5;3;0\n",
                 ": 1 20.5 3 0", "1 1 1 "},
        OddTable{"letters", "h,X,S,P\n1,3,20,0\n", ": 1 20 3 0", "1 1 1 1 "},
        OddTable{"own names beside others", "t,Cs,glucose,Cx,cells,Cp\n1,20,x,3,y,0\n",
                 ": 1 20 3 0"},
        OddTable{"own names behind others", "t,Residual Cs,Dry Cx,Total Cp\n1,20,3,0\n",
                 ": 1 20 3 0", "1 1 1 "},
        OddTable{"separators and blanks left over", "t,Cs,Cx,Cp\n0, \"1\" ,2,3,,\n", ": 0 1 2 3"},
        OddTable{"two may be meant", "t,glucose,sugar,Cx,Cp\n1,20,21,3,0\n",
                 "1: the columns \"glucose\" and \"sugar\" may both be Cs"},
        OddTable{"optical density", "t,S,OD600,P\n0,10,0.1,0\n",
                 "1: there is no column Cx, and \"OD600\" holds an optical density"},
        OddTable{"optical density beside cells", "t,S,OD600,X,P\n0,10,0.1,3,0\n", ": 0 10 3 0",
                 "1 1 1 "},
        OddTable{"units in headers", "t_min,Cs (mg/L),\"Cx, g L⁻¹\",Cp [g/100 mL]\n90,7.3,2,0.5\n",
                 ": 1.5 0.0073 2 5", "1 1 1 "},
        OddTable{"units in a row", "t;Cs;Cx;Cp\n(d);(mg/mL);(kg/m3);(µg/mL)\n0,5;1;2;30\n",
                 ": 12 1 2 0.03", "1 1 "},
        OddTable{"a slash before the unit", "t/s,Cs/g DCW/L,Cx/kg m-3,Cp_mg_per_L\n1800,1,2,3\n",
                 ": 0.5 1 2 0.003", "1 1 "},
        OddTable{"an unknown unit", "t,Cs (lb/gal),Cx,Cp\n0,1,2,3\n",
                 "1: the unit \"lb/gal\" of Cs is not known; known are g/L"},
        OddTable{"time in weeks", "t (weeks),Cs,Cx,Cp\n0,1,2,3\n", "the unit \"weeks\" of t"},
        OddTable{"a remark is no unit", "t (h; 0: inoculation),Cs (enzymatic),Cx,Cp\n0,1,2,3\n",
                 ": 0 1 2 3"},
        OddTable{"mM without a molar mass", "t,Cs_mM,Cx,Cp\n0,1,2,3\n",
                 "1: Cs is in mM, which takes its molar mass"},
        OddTable{"mM",
                 "t,Cs_mM,Cx,Cp\n0,100,2,3\n",
                 ": 0 18.016 2 3",
                 "1 ",
                 {.molarMasses = {{{}, {}, 180.16, {}, {}}}}},
        OddTable{"a molar mass without mM",
                 "t,Cs,Cx,Cp\n0,1,2,3\n",
                 "Cs has a molar mass",
                 "",
                 {.molarMasses = {{{}, {}, 180.16, {}, {}}}}},
        OddTable{"a unit given",
                 "t,Cs,Cx (AU),Cp\n0,1,2,3\n",
                 ": 0 1 0.002 3",
                 "1 ",
                 {.units = {{{}, {}, {}, "mg/L", {}}}}},
        OddTable{"columns given", "hours;a;b;c\n1;2;3;4\n", ": 1 4 2 3", "",
                 Columns("hours", "c", "2", "3")},
        OddTable{"no header at all", "9;0;1;2;3\n9;1;4;5;6\n", ": 0 1 2 3 | 1 4 5 6", "",
                 Columns("2", "3", "4", "5")},
        OddTable{"a column that is not there", "t,Cs,Cx,Cp\n0,1,2,3\n",
                 "1: there is no column \"9\" for Cs; the table has t, Cs, Cx, Cp", "",
                 Columns("t", "9", "Cx", "Cp")}));

const char* const kGaps =
    "exp,t,Cs,Cx,Cp\na,4,10,2,NA\na,0,20,1,0\na,1,,1,N/A\nb,2,5,5,5\na,8,6,3,8\n";

// At 1 h of 0 h and 4 h: Cs = 20 - 10/4 = 17.5, Cp = 0 + 8/8 = 1; Cp at 4 h = 8 * 4/8 = 4.
INSTANTIATE_TEST_SUITE_P(
    Gaps, OddTables,
    testing::Values(OddTable{"NA", kGaps, "2: row 1, column Cp: \"NA\" stands for no value"},
                    OddTable{"an empty cell", "t,Cs,Cx,Cp\n0,1,,3\n",
                             "2: row 1, column Cx: the cell is empty"},
                    OddTable{"rows dropped",
                             kGaps,
                             "a: 0 20 1 0 | 8 6 3 8; b: 2 5 5 5",
                             "2 4 ",
                             {.missing = Missing::DropRow}},
                    OddTable{"values interpolated",
                             kGaps,
                             "a: 4 10 2 4 | 0 20 1 0 | 1 17.5 1 1 | 8 6 3 8; b: 2 5 5 5",
                             "3 2 4 4 ",
                             {.missing = Missing::Interpolate}},
                    OddTable{"a gap beside a sample of the same time",
                             "t,Cs,Cx,Cp\n0,1,2,3\n5,4,2,3\n5,-,2,3\n",
                             ": 0 1 2 3 | 5 4 2 3 | 5 4 2 3",
                             "4 ",
                             {.missing = Missing::Interpolate}},
                    OddTable{"nothing behind the gap",
                             "t,Cs,Cx,Cp\n0,1,2,3\n1,-,2,3\n",
                             "3: row 2, column Cs: there is no value before it or none behind it",
                             "",
                             {.missing = Missing::Interpolate}},
                    OddTable{"a time that is missing",
                             "t,Cs,Cx,Cp\n0,1,2,3\nNA,1,2,3\n",
                             "3: row 2, column t: \"NA\" is not a number",
                             "",
                             {.missing = Missing::DropRow}},
                    OddTable{"what was not detected",
                             "t,Cs,Cx,Cp\n0,n.d.,2,3\n",
                             "\"n.d.\" is not a number",
                             "",
                             {.missing = Missing::DropRow}}));

// Experiments of one sheet below each other or side by side, each with its header.
INSTANTIATE_TEST_SUITE_P(
    Blocks, OddTables,
    testing::Values(
        OddTable{"below each other, with titles",
                 "2026\nBatch 4\nt,Cs,Cx,Cp\n0,20,1,0\n1,18,2,\"1,5\"\n\nBatch 5\n"
                 "t (min),Cp,Cs,Cx\n0,\"1,234\",30,2\nMean,1,2,3\n",
                 "Batch 4: 0 20 1 0 | 1 18 2 1.5; Batch 5: 0 30 2 1.234", "1 8 10 "},
        OddTable{"below each other, without titles", "t,Cs,Cx,Cp\n0,1,2,3\nt,Cs,Cx,Cp\n0,4,5,6\n",
                 "1: 0 1 2 3; 2: 0 4 5 6"},
        OddTable{"side by side",
                 "Batch 4,,,,,Batch 5,,,\ntime,glucose,cells,product,,time,glucose,cells,product\n"
                 "0,1,2,3,,0,4,5,6\n,,,,,1,7,8,9\n",
                 "Batch 4: 0 1 2 3; Batch 5: 0 4 5 6 | 1 7 8 9", "2 2 2 2 2 2 "},
        OddTable{"two times for one substrate", "t,Cs,Cx,Cp,t\n0,1,2,3,0\n",
                 "1: two columns begin with t"},
        OddTable{"two columns of each, not side by side",
                 "t,t,Cs,Cs,Cx,Cx,Cp,Cp\n0,0,1,1,2,2,3,3\n", "1: two columns begin with t"},
        OddTable{"a column before its time", "Cs,t,Cx,Cp,t,Cs,Cx,Cp\n1,0,2,3,0,4,5,6\n",
                 "1: two columns begin with t"},
        OddTable{"an experiment in two blocks",
                 "exp,t,Cs,Cx,Cp\na,0,1,2,3\nexp,t,Cs,Cx,Cp\na,1,1,2,3\n",
                 "3: the experiment \"a\" stands in another table too"},
        OddTable{"rows out of order", "t,Cs,Cx,Cp\n4,1,2,3\n0,9,1,0\n2,5,2,1\n",
                 ": 4 1 2 3 | 0 9 1 0 | 2 5 2 1", "3 "}));

/// A workbook made by the program of that name: a hidden sheet before "Yeast", titles, minutes, a
/// note beside the table, a formula below it, and a sheet "Clock" with a time of day.
std::string Workbook(const std::string& maker) {
  return BytesOf(VELMORA_SOURCE_FOLDER "/tests/data/workbooks/" + maker + ".xlsx");
}

INSTANTIATE_TEST_SUITE_P(
    Workbooks, OddTables,
    testing::Values(
        OddTable{"the first sheet that is shown", Workbook("libxlsxwriter"),
                 "E7: 0 20.5 0.25 0 | 1.5 18.125 0.3333333333333333 1E-05; E3: 0 1234.5 0.1 2",
                 "0 1 3 3 "},
        OddTable{"blocks in a sheet", Workbook("libreoffice"),
                 "Batch 4: 0 20 0.1 0 | 2 18 0.8 1 | 4 10 3 2; Batch 5: 0 30.5 0.2 0 | 3 25 1.5 2"},
        OddTable{"a time of day",
                 Workbook("libxlsxwriter"),
                 "2: row 1, column t: \"0.2708333333333333\" is a date or a time of day",
                 "",
                 {.sheet = "Clock"}},
        OddTable{"a sheet that is not there",
                 Workbook("libxlsxwriter"),
                 "0: there is no sheet \"Yeats\"; the workbook has Notes, Yeast, Clock",
                 "",
                 {.sheet = "Yeats"}},
        OddTable{
            "a sheet of a text", "t,Cs,Cx,Cp\n0,1,2,3\n", "--sheet is for", "", {.sheet = "A"}},
        OddTable{"more than may be unpacked",
                 Workbook("libxlsxwriter"),
                 "0: the workbook unpacks to more than 0.004 MB",
                 "",
                 {.limit = 4000}},
        OddTable{"a workbook cut short", Workbook("libreoffice").substr(0, 4000), "is damaged"},
        OddTable{"an old workbook", "\xD0\xCF\x11\xE0\xA1\xB1", "of the old kind (.xls)"}));

TEST(ManyTables, AreToldApartByTheirNames) {
  const std::string b = "t,Cs,Cx,Cp\n0,4,5,6\n";
  const TableFile files[] = {{"t,Cs,Cx,Cp\n0,1,2,3\n", "run 7"}, {b, "run 3"}, {b, "run 7"}};
  const TableRead two = ReadTables({files, 2}, {});
  EXPECT_EQ(Content(two), "run 7: 0 1 2 3; run 3: 0 4 5 6");
  EXPECT_EQ(two.lists.At(2).number, 3);
  EXPECT_EQ(ReadTables({files, 2}, {.only = {"run 3"}}).lists.Count(), 1);
  const TableRead three = ReadTables(files, {});
  EXPECT_EQ(three.fault.value().table, 2u);
  EXPECT_NE(Content(three).find("\"run 7\" stands in another"), std::string::npos);
}

TEST(ManyTables, EndWhereTheyTakeTooMuchMemory) {
  const auto said = [](const std::string& table) { return Content(ReadTable(table, {})); };
  EXPECT_NE(said("t,Cs,Cx,Cp\n" + std::string(20'000, ',')).find("at most 16384 columns"),
            std::string::npos);
  std::string rows = "t,Cs,Cx,Cp\n";
  for (int row = 0; row < 200; ++row) rows += std::string(12'000, ',') + "\n";
  EXPECT_NE(said(rows).find("at most 2000000 cells"), std::string::npos);
  EXPECT_NE(said("t,Cs,Cx,Cp\n" + std::string(1'100'000, '\n') + "0,1,2,3\n").find("lines"),
            std::string::npos);
}

// Excerpts of published tables: Zentou et al. 2019, Biomolecules 9(8):308, digitised, as saved with
// decimal commas; Zahoor et al. 2020, Biotechnol Biofuels, doi:10.1186/s13068-020-01822-9, Fig. 2;
// ten batches of S. cerevisiae ITD-00185, data10E of 2026-03-26.
INSTANTIATE_TEST_SUITE_P(
    Published, OddTables,
    testing::Values(
        OddTable{"molasses",
                 "# Zentou\nexperiment;t_h;Cx_g_per_L;Cs_g_per_L;Cp_g_per_L\n"
                 "A;16;11,72252;33,73693;18,411366\nA;34;21,328758;0;31,5461\n",
                 "A: 16 33.73693 11.72252 18.411366 | 34 0 21.328758 31.5461"},
        OddTable{"anaerobic yeast",
                 "experiment,t_h,Cx_g_per_L,Cs_g_per_L,Cp_g_per_L\n"
                 "E1,0.0,0.0738363,3.51665,0.00268233\n",
                 "E1: 0 3.51665 0.0738363 0.00268233"},
        OddTable{
            "ten batches",
            "experiment,t_h,Cx_g_per_L,Cs_g_per_L,Cp_g_per_L,glucose_g_per_L,fructose_g_per_L\n"
            "E1,3,0.021603611,18.89305,0,2.82448625,16.06856375\n",
            "E1: 3 18.89305 0.021603611 0"}));

}  // namespace
}  // namespace velmora
