// The commands on the molasses example and on files made from it.
#include <pty.h>

#include <nlohmann/json.hpp>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

using nlohmann::json;
using Cli = CommandLine;

/// A copy of an example with one text replaced.
std::string Replaced(const std::string& example, const std::string& from, const std::string& to) {
  std::string bytes = BytesOf(kExamples + example);
  return bytes.replace(bytes.find(from), from.size(), to);
}

TEST_F(Cli, RefusesWithOneLineAndItsExitCode) {
  const std::string nine = kExamples + "yeast-nine.abr ";
  ExpectRefusal("fit " + kBoth + "--method ED --pcros 0.95", 1,
                "--pcros: One of the parameters is out of bounds.");
  ExpectRefusal("fit " + kBoth + "--method ED --npop 9 --language pt", 1, "Um dos parâmetros");
  ExpectRefusal("fit " + kBoth + "--method ED --npop 1e12", 1, "not enough memory");
  ExpectRefusal("fit " + nine + kConditions, 1, "The number of experiments is not equal");
  ExpectRefusal("simulate " + nine + kConditions, 1, "The number of experiments is not equal");
  ExpectRefusal("score " + kBoth + "--model Monod --set Kis=3", 1, "no parameter Kis");
  ExpectRefusal("fit " + kExamples + "yeast-nine.abr " + kExamples +
                    "yeast-nine-conditions.abr --model Monod",
                1, "Monod has no parameter Kis");
  ExpectRefusal("fit " + kBoth + "--pcros 0,8", 2, "--pcros: \"0,8\" has a comma");
  ExpectRefusal("fit " + kBoth + "--npop 10000", 2, "--npop is a setting of the differential");
  ExpectRefusal("fit " + kBoth + "--eps 1e-400", 2, "--eps: \"1e-400\" is out of range");
  ExpectRefusal("fit " + kBoth + "--model monod", 2, "there is no model \"monod\"");
  ExpectRefusal("score " + kBoth + "--set Km=3", 2, "there is no parameter \"Km\"");
  ExpectRefusal("fit " + kMolasses, 2, "CONDITIONS");
  ExpectRefusal("fitt " + kBoth, 2, "no command \"fitt\"");
  ExpectRefusal("fit absent.abr " + kConditions, 3, "absent.abr: the file cannot be opened");
  ExpectRefusal("fit " + kConditions + kMolasses, 3, ":2: this is a conditions file");
  ExpectRefusal("check " + kExamples + "README.md", 3, "README.md:2:");
  ExpectRefusal("fit --language pt", 2, "falta EXPERIMENTS; veja --help");
  ExpectRefusal("fit " + kBoth + "--method XX --language pt", 2, "--method: XX não é um de {");
  ExpectRefusal("fit " + kBoth + "--wrong --language pt", 2, "argumento inesperado: --wrong");
  EXPECT_NE(RunCli("fit --help --language pt").out.find("Uso: velmora-cli fit [OPÇÕES]"),
            std::string::npos);
}

// A description can hold what clears the screen.
TEST_F(Cli, ShowsATerminalWhatItWouldObey) {
  const std::string odd = folder_ / "odd.abr";
  WriteFile(odd, Replaced("molasses.abr", "\nA\r", "\nbefore\x1b[2Jafter \xE7\r"));
  int terminal = 0, program = 0;
  if (openpty(&terminal, &program, nullptr, nullptr, nullptr) != 0)
    GTEST_SKIP() << "the system gives no terminal";
  ASSERT_EQ(Program({"check", odd}, {.out = program}).Wait().code, 0);
  std::string shown(4096, '\0');
  shown.resize(static_cast<std::size_t>(read(terminal, shown.data(), shown.size())));
  close(program);
  close(terminal);
  EXPECT_NE(shown.find("\"before\\x1B[2Jafter ç\""), std::string::npos) << shown;
  EXPECT_NE(RunCli("check " + odd).out.find("before\x1b[2Jafter ç"), std::string::npos);
}

TEST_F(Cli, SaysWhatIsWrongInAFile) {
  const std::string changed = folder_ / "changed.abr";
  WriteFile(changed, Replaced("molasses.abr", "|2|73.038826|", "|2|73,038826|"));
  ExpectRefusal("check " + changed, 3, "changed.abr:13: point 2:");
  WriteFile(changed, Replaced("molasses-conditions.abr", "#1", "#7"));
  ExpectRefusal("fit " + kMolasses + changed, 1, "place 1: the experiment has the number 1 ");
  WriteFile(changed, Replaced("molasses-conditions.abr", "\r\nLM\r\n", "\r\nNone\r\n"));
  ExpectRefusal("fit " + kMolasses + changed, 1, "Fitting method has not been selected.");
  WriteFile(changed, Replaced("molasses-conditions.abr", "Batelada\r\n", ""));
  ExpectRefusal("fit " + kMolasses + changed, 1, "The number of experiments is not equal");
  EXPECT_NE(RunCli("check " + changed).out.find("not \"Batelada\""), std::string::npos);
  WriteFile(changed, Replaced("molasses-conditions.abr", "PAC", "PCA"));
  EXPECT_NE(RunCli("check " + changed).out.find("changed.abr:39: option text 3: \"PCA\" is not"),
            std::string::npos);
}

TEST_F(Cli, RefusesConditionsThatCannotBeFitted) {
  const std::string start = "conditions " + kMolasses +
                            "--model Monod --product PAC --yields global "
                            "-o " +
                            (folder_ / "c.abr") + " --set Yps=0.42 ";
  const std::string both = "--fit MiMax=0.2:0.05:1 --fit Ks=10:1:50 ";
  ExpectRefusal(start + both, 1, "experiment 1 (place 1): Yxs must be greater than 0.");
  ExpectRefusal(start + "--set Yxs=0.3 --fit Ks=10:1:50", 1, "the model Monod needs MiMax");
  ExpectRefusal(start + "--set Yxs=0.3 --set MiMax=1 --set Ks=1", 1, "You must select a variable");
  ExpectRefusal(start + "--set Yxs=0.3 --set n=1 " + both, 1, "Monod has no parameter n");
  ExpectRefusal(start + "--set Yxs=0.3 --set Alfa=1 " + both, 1, "Alfa cannot be set");
  ExpectRefusal(start + "--set Yxs=0.3 --set Ks=1 --fit MiMax=0.2:0:1", 1, "cannot be zero");
  ExpectRefusal(start + "--set Yxs=0.3 --set Ks=1 --fit MiMax=2:0.1:1", 1, "out of boundary");
  ExpectRefusal(start + "--set Yxs=0.3 --set Ks=1 --fit MiMax=1:1:1", 1, "Check the bound values.");
  ExpectRefusal(start + "--set Yxs=1e-200 --set Yps=1e200 " + both, 1, "out of bounds");
  ExpectRefusal(start + "--set 2:Cx0=1 " + both, 2, "place 2");
  ExpectRefusal(start + "--set Yxs " + both, 2, "should read");
  EXPECT_EQ(BytesOf(folder_ / "c.abr"), "");
}

// The commands of examples/README.md make the example's files again, byte for byte.
TEST_F(Cli, MakesTheMolassesExample) {
  const std::string experiments = folder_ / "m.abr";
  ASSERT_EQ(RunCli("import " + kExamples + "molasses.csv -o " + experiments).code, 0);
  EXPECT_EQ(BytesOf(experiments), BytesOf(kExamples + "molasses.abr"));
  const std::string conditions = Conditions("c.abr",
                                            "--model Monod --product PAC --yields global "
                                            "--fit MiMax=0.2:0.05:0.5 --fit Ks=10:1:40");
  EXPECT_EQ(BytesOf(conditions), BytesOf(kExamples + "molasses-conditions.abr"));
}

// The experiment at place 1 has the number 2, and the other way round.
TEST_F(Cli, NamesExperimentsByTheirNumber) {
  const std::string files = FitOf(
      "exp,t,Cs,Cx,Cp\n2,0,10,1,0\n2,1,8,1.5,1\n2,2,6,2,2\n1,0,9,1,0\n1,1,7,1.6,1\n"
      "1,2,5,2.2,2\n",
      "--set 1:Cx0=1e308");
  ExpectRefusal("fit " + files, 4, "(experiment 2");
}

TEST_F(Cli, SimulatesAndExportsHundredPoints) {
  const json run = json::parse(RunCli("simulate " + kBoth + "--json").out);
  const json& experiment = run.at("experiments").at(0);
  EXPECT_EQ(experiment.at("place"), 1);
  EXPECT_EQ(experiment.at("number"), 1);
  for (const char* series : {"time", "Cx", "Cs", "Cp"})
    EXPECT_EQ(experiment.at(series).size(), 100u) << series;
  EXPECT_EQ(experiment.at("Cs").at(0), 75.04926);  // the first measured point

  const std::string text = RunCli("export " + kBoth).out;
  EXPECT_TRUE(text.starts_with("Experimento: 1\r\n"));
  EXPECT_NE(text.find("\r\n0.0000\t1.1060\t75.0493\t0.0000\r\n"), std::string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 103);
}

// A table of curves is one that can be imported again; half way the curve is on its straight line.
TEST_F(Cli, WritesCurvesAsTables) {
  const std::string curves = folder_ / "curves.csv", back = folder_ / "back.abr";
  ASSERT_EQ(RunCli("export " + kBoth + "--format csv --points 199 -o " + curves).code, 0);
  ASSERT_EQ(RunCli("import " + curves + " -o " + back).code, 0);
  const json run = json::parse(RunCli("simulate " + kBoth + "--json").out).at("experiments").at(0);
  const json dense = json::parse(RunCli("simulate " + kBoth + "--format json --points 199").out)
                         .at("experiments")
                         .at(0);
  EXPECT_NEAR(dense.at("Cs").at(21),
              (run.at("Cs").at(10).get<double>() + run.at("Cs").at(11).get<double>()) / 2, 1e-9);
  EXPECT_NEAR(dense.at("Cx").at(198), run.at("Cx").at(99), 1e-9);
  EXPECT_NE(RunCli("check " + back).out.find("199 point(s)"), std::string::npos);
  EXPECT_NE(RunCli("export " + kBoth + "--format tsv").out.find("experiment\tt_h\t"),
            std::string::npos);
  ExpectRefusal("export " + kBoth + "--points 5", 2, "--points goes with --format");
}

TEST_F(Cli, WritesWhatItPrintsWholeOrNotAtAll) {
  const std::string file = folder_ / "out.json", link = folder_ / "other";
  WriteFile(file, "old");
  ExpectRefusal("score " + kBoth + "--model Moser -o " + file, 1, "needs u");
  EXPECT_EQ(BytesOf(file), "old");
  std::filesystem::create_hard_link(file, link);
  const Ran ran = RunCli("score " + kBoth + "--json -o " + file);
  EXPECT_EQ(ran.out, "");
  EXPECT_NE(ran.err.find("other names (hard links)"), std::string::npos) << ran.err;
  EXPECT_TRUE(json::parse(BytesOf(file)).contains("score"));
  ExpectRefusal("score " + kBoth + "--json -o " + (folder_ / "no/file"), 3, R"("code":3)");
}

// Contois has Ks as g of substrate per g of cells.
TEST_F(Cli, SaysWhichValuesAnotherModelTakesInAnotherUnit) {
  const std::string score = "score " + kBoth + "--model Contois ";
  EXPECT_NE(
      RunCli(score).err.find("Ks stays as the conditions have it, in g/L; Contois takes it in g/g"),
      std::string::npos);
  for (const char* const silent : {"--set Ks=0.1", "--quiet"})
    EXPECT_EQ(RunCli(score + silent).err, "") << silent;
  EXPECT_EQ(RunCli("score " + kBoth + "--model Moser --set u=1").err, "");
  EXPECT_NE(RunCli("fit " + kBoth + "--model Contois --fit Ks=0.3:0.01:10").out.find(" g/g\n"),
            std::string::npos);
}

TEST_F(Cli, RefusesToFitASimulation) {
  const std::string manual =
      Conditions("manual.abr",
                 "--model Monod --product PAC --yields global --method Manual --set Ks=10 "
                 "--set MiMax=0.2");
  ExpectRefusal("fit " + kMolasses + manual, 1, "velmora-cli simulate");
  EXPECT_EQ(RunCli("simulate " + kMolasses + manual).code, 0);
}

TEST_F(Cli, AsksForWhatAnotherModelNeeds) {
  const std::string andrews = " --model Andrews-Hoppe ", give = "the model Andrews-Hoppe needs Ki";
  for (const std::string command : {"score ", "simulate ", "export "}) {
    ExpectRefusal(command + kBoth + andrews, 1, give + "s: give --set Kis=VALUE\n");
    ExpectRefusal(command + kBoth + andrews + "--set Kis=50", 1,
                  give + "p: give --set Kip=VALUE\n");
  }
  ExpectRefusal("fit " + kBoth + andrews + "--set Kis=50", 1,
                give + "p: give --set Kip=VALUE or --fit Kip=START:LOWER:UPPER\n");

  // The same values in a conditions file of that model.
  const std::string saved =
      Conditions("andrews.abr",
                 "--model Andrews-Hoppe --product PAC --yields global "
                 "--set MiMax=0.2 --set Ks=10 --set Kis=50 --fit Kip=30:1:90");
  const std::string values = andrews + "--set Kis=50 --set Kip=30 ";
  EXPECT_EQ(RunCli("export " + kBoth + values).out, RunCli("export " + kMolasses + saved).out);
  EXPECT_EQ(RunCli("score " + kBoth + values).out, RunCli("score " + kMolasses + saved).out);

  const Ran ran = RunCli("fit " + kBoth + andrews +
                         "--fit Kip=30:1:90 --fit Kis=50:20:80 --fit Ks=12:11:13 --json");
  EXPECT_EQ(ran.code, 0) << ran.err;
  const json fit = json::parse(ran.out);
  std::string fitted;
  for (const json& parameter : fit.at("parameters"))
    fitted += parameter.at("name").get<std::string>() + parameter.at("start").dump() + ":" +
              parameter.at("lower").dump() + ":" + parameter.at("upper").dump() + " ";
  EXPECT_EQ(fitted, "MiMax0.2:0.05:0.5 Ks12:11:13 Kis50:20:80 Kip30:1:90 ");
}

TEST_F(Cli, RefusesWhatTheModelInTheFileDoesNotUse) {
  for (const std::string command : {"score ", "simulate ", "export ", "fit "})
    ExpectRefusal(command + kBoth + "--set Kip=3", 1, "the model Monod has no parameter Kip");
  ExpectRefusal("fit " + kBoth + "--fit Kip=3:1:9", 1, "the model Monod has no parameter Kip");
  ExpectRefusal("fit " + kBoth + "--set Ks=3", 2, "Ks is both set and fitted");
  ExpectRefusal("fit " + kBoth + "--fit Ks=3:1:9 --fit Ks=3:1:9", 2, "Ks is given twice");
  // The switches are those of two models, and no name tells of which.
  const std::string nameless = folder_ / "nameless.abr";
  WriteFile(nameless, Replaced("molasses-conditions.abr", "\r\nMonod\r\n", "\r\n-\r\n"));
  ExpectRefusal("score " + kMolasses + nameless + " --set u=2", 1, "name it with --model");
  ExpectRefusal("score " + kMolasses + nameless + " --model Moser", 1, "the model Moser needs u");
  EXPECT_EQ(RunCli("score " + kMolasses + nameless + " --set Ks=10").out,
            RunCli("score " + kBoth).out);
}

}  // namespace
}  // namespace velmora
