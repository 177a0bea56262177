// The commands on the molasses example and on files made from it.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <thread>

#include "data/SafeSave.h"
#include "tests/cli/RunProgram.h"

namespace velmora {
namespace {

using nlohmann::json;

const std::string kExamples = VELMORA_EXAMPLES "/";
const std::string kMolasses = kExamples + "molasses.abr ";
const std::string kConditions = kExamples + "molasses-conditions.abr ";
const std::string kBoth = kMolasses + kConditions;

constexpr const char* kPngBegins = "89504e470d0a1a0a";

class Cli : public testing::Test {
 protected:
  /// A conditions file for the molasses example.
  std::string Conditions(const std::string& name, const std::string& options) {
    const Ran ran = RunCli("conditions " + kMolasses + options +
                           " --set Yxs=0.27232 --set Yps=0.42448"
                           " -o " +
                           (folder_ / name));
    EXPECT_EQ(ran.code, 0) << ran.err;
    return folder_ / name;
  }
  TemporaryFolder folder_;
};

void ExpectRefusal(const std::string& arguments, int code, const std::string& part) {
  const Ran ran = RunCli(arguments);
  EXPECT_EQ(ran.code, code) << arguments;
  EXPECT_NE(ran.err.find(part), std::string::npos) << arguments << ": " << ran.err;
  EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << arguments << ": " << ran.err;
  EXPECT_EQ(ran.out, "") << arguments;
}

TEST_F(Cli, RefusesWithOneLineAndItsExitCode) {
  const std::string nine = kExamples + "yeast-nine.abr ";
  ExpectRefusal("fit " + kBoth + "--pcros 0.95", 1,
                "--pcros: One of the parameters is out of bounds.");
  ExpectRefusal("fit " + kBoth + "--npop 9 --language pt", 1, "Um dos parâmetros");
  ExpectRefusal("fit " + kBoth + "--npop 1e12", 1, "not enough memory");
  ExpectRefusal("fit " + nine + kConditions, 1, "The number of experiments is not equal");
  ExpectRefusal("simulate " + nine + kConditions, 1, "The number of experiments is not equal");
  ExpectRefusal("score " + kBoth + "--model Monod --set Kis=3", 1, "no parameter Kis");
  ExpectRefusal("fit " + kExamples + "yeast-nine.abr " + kExamples +
                    "yeast-nine-conditions.abr --model Monod",
                1, "Monod has no parameter Kis");
  ExpectRefusal("fit " + kBoth + "--pcros 0,8", 2, "--pcros: \"0,8\" has a comma");
  ExpectRefusal("fit " + kBoth + "--eps 1e-400", 2, "--eps: \"1e-400\" is out of range");
  ExpectRefusal("fit " + kBoth + "--model monod", 2, "there is no model \"monod\"");
  ExpectRefusal("score " + kBoth + "--set Km=3", 2, "there is no parameter \"Km\"");
  ExpectRefusal("fit " + kMolasses, 2, "CONDITIONS");
  ExpectRefusal("fitt " + kBoth, 2, "no command \"fitt\"");
  ExpectRefusal("fit absent.abr " + kConditions, 3, "absent.abr: the file cannot be opened");
  ExpectRefusal("fit " + kConditions + kMolasses, 3, ":2: this is a conditions file");
  ExpectRefusal("check " + kExamples + "README.md", 3, "README.md:2:");
  EXPECT_EQ(RunCli("fit --help").code, 0);
}

/// A copy of an example with one text replaced.
std::string Replaced(const std::string& example, const std::string& from, const std::string& to) {
  std::string bytes = BytesOf(kExamples + example);
  return bytes.replace(bytes.find(from), from.size(), to);
}

TEST_F(Cli, SaysWhatIsWrongInAFile) {
  const std::string changed = folder_ / "changed.abr";
  WriteFile(changed, Replaced("molasses.abr", "|2|73.038826|", "|2|73,038826|"));
  ExpectRefusal("check " + changed, 3, "changed.abr:13: point 2:");
  WriteFile(changed, Replaced("molasses-conditions.abr", "#1", "#7"));
  ExpectRefusal("fit " + kMolasses + changed, 1, "place 1: the experiment has the number 1 ");
  WriteFile(changed, Replaced("molasses-conditions.abr", "\r\nED\r\n", "\r\nLM\r\n"));
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

// Zentou et al. 2019 report 0.179 1/h and 11.37 g/L for these data; the fit must come within one
// deviation of it.
TEST_F(Cli, FitsMolassesNearThePublishedValues) {
  const Ran ran = RunCli("fit " + kBoth + "--npop 10000 --eps 0.0000001 --json");
  ASSERT_EQ(ran.code, 0) << ran.err;
  const json fit = json::parse(ran.out);
  const json& muMax = fit.at("parameters").at(0);
  const json& Ks = fit.at("parameters").at(1);
  EXPECT_EQ(muMax.at("name"), "MiMax");
  EXPECT_EQ(muMax.at("label"), "µmáx =");
  EXPECT_EQ(muMax.at("position"), 8);
  EXPECT_EQ(muMax.at("start"), 0.2);
  EXPECT_EQ(Ks.at("lower"), 1);
  EXPECT_EQ(Ks.at("upper"), 40);
  EXPECT_NEAR(muMax.at("value"), 0.179, muMax.at("deviation").get<double>());
  EXPECT_NEAR(Ks.at("value"), 11.37, Ks.at("deviation").get<double>());
  EXPECT_EQ(fit.at("observations"), 27);
  EXPECT_EQ(fit.at("degreesOfFreedom"), 25);
  EXPECT_EQ(fit.at("outcome"), "converged");
  EXPECT_EQ(fit.at("functionCalls"), 10000 * (1 + fit.at("generations").get<int>()));
  const double sum = fit.at("sumOfSquaredErrors");
  EXPECT_DOUBLE_EQ(fit.at("squareError"), sum / 27);

  // The score at the printed values is the fit's, to the last bit, and the sum of its shares.
  const json score =
      json::parse(RunCli("score " + kBoth + "--json --set MiMax=" + muMax.at("value").dump() +
                         " --set Ks=" + Ks.at("value").dump())
                      .out);
  EXPECT_EQ(score.at("score"), sum);
  const json& share = score.at("experiments").at(0);
  EXPECT_NEAR(
      share.at("Cx").get<double>() + share.at("Cs").get<double>() + share.at("Cp").get<double>(),
      sum, 1e-15);
}

TEST_F(Cli, WritesAReportBesideTheResults) {
  const Ran ran = RunCli("fit " + kBoth + "--language pt --report " + (folder_ / "fit.rtf"));
  EXPECT_EQ(ran.code, 0) << ran.err;
  const std::string report = BytesOf(folder_ / "fit.rtf");
  EXPECT_TRUE(report.starts_with("{\\rtf1"));
  EXPECT_NE(report.find("Relat\\'f3rio"), std::string::npos);
  int charts = 0;
  for (auto at = report.find(kPngBegins); at != std::string::npos;
       at = report.find(kPngBegins, at + 1))
    ++charts;
  EXPECT_EQ(charts, 3);

  const Ran unwritten = RunCli("fit " + kBoth + "--report /nowhere/fit.rtf");
  EXPECT_EQ(unwritten.code, 3);
  EXPECT_EQ(unwritten.out, RunCli("fit " + kBoth).out) << "the search is not lost";

  const std::string copy = folder_ / "copy.abr";
  WriteFile(copy, BytesOf(kExamples + "molasses.abr"));
  ExpectRefusal("fit " + copy + " " + kConditions + "--report " + copy, 2, "is the input file");
  EXPECT_EQ(BytesOf(copy), BytesOf(kExamples + "molasses.abr"));
}

// The experiment at place 1 has the number 2, and the other way round.
TEST_F(Cli, NamesExperimentsByTheirNumber) {
  const std::string table = folder_ / "two.csv", experiments = folder_ / "two.abr";
  WriteFile(table,
            "exp,t,Cs,Cx,Cp\n2,0,10,1,0\n2,1,8,1.5,1\n2,2,6,2,2\n1,0,9,1,0\n1,1,7,1.6,1\n"
            "1,2,5,2.2,2\n");
  ASSERT_EQ(RunCli("import " + table + " -o " + experiments).code, 0);
  const std::string conditions = folder_ / "c.abr";
  ASSERT_EQ(RunCli("conditions " + experiments +
                   " --model Monod --product PAC --yields global --set Yxs=0.3 --set Yps=0.4 "
                   "--set 1:Cx0=1e308 --fit MiMax=0.2:0.05:1 --fit Ks=10:1:50 -o " +
                   conditions)
                .code,
            0);
  ExpectRefusal("fit " + experiments + " " + conditions, 4, "(experiment 2");
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
  EXPECT_TRUE(
      text.starts_with("Experimento: 1\r\nt(h)    Cx(g/L) Cs(g/L) Cp(g/L)\r\n"
                       "0.0000\t1.1060\t75.0493\t0.0000\r\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 103);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 103);
}

TEST_F(Cli, ReportsArithmeticFaults) {
  // Without product in the model neither parameter of the Levenspiel term changes anything: the
  // normal matrix is singular.
  const std::string singular =
      Conditions("singular.abr",
                 "--model Levenspiel --product PNAC --yields stoichiometric "
                 "--set Ks=10 --set MiMax=0.2 --fit CpAst=50:10:100 --fit n=1:0.5:2");
  const Ran fit = RunCli("fit " + kMolasses + singular + " --json");
  EXPECT_EQ(fit.code, 4);
  EXPECT_NE(fit.err.find("Overflow! Try to change the parameters!"), std::string::npos) << fit.err;
  EXPECT_TRUE(json::parse(fit.out).at("parameters").at(0).at("deviation").is_null());

  const std::string huge = Conditions("huge.abr",
                                      "--model Monod --product PAC --yields global "
                                      "--set Ks=10 --fit MiMax=2e307:1e307:1e308");
  ExpectRefusal("fit " + kMolasses + huge, 4, "Estimate was not completed:");
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

// The start vector scores 4.1292, and this seed's first two generations end above it.
TEST_F(Cli, SaysThatTheResultIsWorseThanTheStart) {
  const std::string worse = "fit " + kExamples + "yeast-nine.abr " + kExamples +
                            "yeast-nine-conditions.abr --iu 4321 --eps 1e-7 ";
  const json fit = json::parse(RunCli(worse + "--json").out);
  EXPECT_NEAR(fit.at("startScore"), 4.1292, 1e-4);
  EXPECT_GT(fit.at("sumOfSquaredErrors"), fit.at("startScore"));
  EXPECT_TRUE(
      fit.at("remark").get<std::string>().starts_with("The result is worse than the start"));
  const std::string text = RunCli(worse + "--language pt").out;
  EXPECT_NE(text.find("\nSoma do quadrado dos erros dos valores iniciais = 4.129220059361717\n"
                      "O resultado é pior que os valores iniciais;"),
            std::string::npos);
  EXPECT_FALSE(json::parse(RunCli("fit " + kBoth + "--json").out).contains("remark"));
}

// Cs^u is above the largest double, 1.8e308, where u is above 164.39; few of the vectors are.
TEST_F(Cli, KeepsTheBestVectorBeforeAFault) {
  const std::string moser = Conditions("moser.abr",
                                       "--model Moser --product PAC --yields global "
                                       "--fit MiMax=0.2:0.05:0.5 --fit Ks=10:1:4000 "
                                       "--fit u=1:0.5:164.5");
  const std::string fit = "fit " + kMolasses + moser + " --npop 300 --eps 1e-7 --iu 4000 ";
  const std::string said =
      "Estimate was not completed: overflow in the substrate power Cs^u (experiment 1, point 1 of "
      "100), t = 0.0000 h";
  const Ran ran = RunCli(fit + "--json --report " + (folder_ / "fit.rtf"));
  EXPECT_EQ(ran.code, 4);
  EXPECT_EQ(ran.err, "velmora-cli: " + said + "\n");
  const json found = json::parse(ran.out);
  EXPECT_EQ(found.at("outcome"), "fault");
  EXPECT_EQ(found.at("fault"), said);
  EXPECT_EQ(found.at("generations"), 2);
  EXPECT_EQ(found.at("bestGeneration"), 2);
  const std::string best = " --set MiMax=" + found.at("parameters").at(0).at("value").dump() +
                           " --set Ks=" + found.at("parameters").at(1).at("value").dump() +
                           " --set u=" + found.at("parameters").at(2).at("value").dump();
  const json score = json::parse(RunCli("score " + kMolasses + moser + " --json" + best).out);
  EXPECT_EQ(score.at("score"), found.at("sumOfSquaredErrors"));
  EXPECT_NE(BytesOf(folder_ / "fit.rtf").find("are those of generation 2."), std::string::npos);

  const Ran text = RunCli(fit);
  EXPECT_EQ(text.code, 4);
  EXPECT_TRUE(text.out.ends_with("The best values found before this are those of generation 2.\n"));
}

TEST_F(Cli, ReportsWhyOnePointGivesNoDeviations) {
  const std::string table = folder_ / "one.csv", experiments = folder_ / "one.abr";
  WriteFile(table, "t,Cs,Cx,Cp\n0,10,1,0\n");
  ASSERT_EQ(RunCli("import " + table + " -o " + experiments).code, 0);
  const std::string conditions = folder_ / "c.abr";
  ASSERT_EQ(RunCli("conditions " + experiments +
                   " --model Monod --product PAC --yields global --set Yxs=0.3 --set Yps=0.4 "
                   "--set T=5 --fit MiMax=0.2:0.05:1 --fit Ks=10:1:50 -o " +
                   conditions)
                .code,
            0);
  const Ran ran =
      RunCli("fit " + experiments + " " + conditions + " --report " + (folder_ / "fit.rtf"));
  EXPECT_EQ(ran.code, 4);
  EXPECT_NE(BytesOf(folder_ / "fit.rtf").find("The deviations could not be computed: the measured"),
            std::string::npos);
}

/// A fit that scores its first population for `members` candidates' time.
std::vector<std::string> LongFit(const std::string& members) {
  return {
      "fit",   kExamples + "molasses.abr", kExamples + "molasses-conditions.abr", "--npop", members,
      "--json"};
}

void WaitUntil(const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!holds() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  ASSERT_TRUE(holds());
}

TEST_F(Cli, StopsOnASignalAndPrintsWhatItFound) {
  for (const auto& [signal, code] :
       {std::pair{SIGINT, 130}, std::pair{SIGTERM, 143}, std::pair{SIGHUP, 129}}) {
    Program program(LongFit("60000"));
    WaitUntil([&, heard = signal] { return program.Hears(heard); });
    program.Send(signal);
    const Ran ran = program.Wait();
    EXPECT_EQ(ran.code, code) << ran.err;
    const json fit = json::parse(ran.out);
    EXPECT_EQ(fit.at("outcome"), "stopped");
    // It stops before the first generation: only the initial population has been scored.
    EXPECT_EQ(fit.at("functionCalls"), 60000);
    EXPECT_GT(fit.at("parameters").at(0).at("value"), 0.05);
  }
}

TEST_F(Cli, EndsAtOnceOnASecondSignal) {
  Program program(LongFit("600000"));
  WaitUntil([&] { return program.Hears(SIGINT); });
  program.Send(SIGINT);
  WaitUntil([&] { return !program.Hears(SIGINT); });
  program.Send(SIGTERM);
  const Ran ran = program.Wait();
  EXPECT_EQ(ran.signal, SIGTERM);
  EXPECT_EQ(ran.out, "");
}

TEST_F(Cli, LeavesASignalIgnoredThatItWasStartedToIgnore) {
  for (const int ignored : {SIGINT, SIGHUP}) {
    Program program(LongFit("20000"), {ignored});
    WaitUntil([&] { return program.Hears(SIGTERM); });
    program.Send(ignored);
    const Ran ran = program.Wait();
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(json::parse(ran.out).at("outcome"), "converged");
  }
}

// The report is written before the results, which wait here until the pipe is read.
TEST_F(Cli, PrintsTheResultsOfASearchThatEndedBeforeCtrlC) {
  FullPipe pipe;
  const std::string report = folder_ / "fit.rtf";
  std::vector<std::string> arguments = LongFit("100");
  arguments.insert(arguments.end(), {"--report", report});
  Program program(arguments, {0, pipe.WriteEnd()});
  WaitUntil([&] { return !BytesOf(report).empty(); });
  program.Send(SIGINT);
  EXPECT_EQ(json::parse(pipe.Read()).at("outcome"), "converged");
  EXPECT_EQ(program.Wait().code, 0);
}

TEST_F(Cli, WritesTheReportWhereNobodyReadsTheProgress) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  close(ends[0]);
  const std::string report = folder_ / "fit.rtf";
  Program program({"fit", kExamples + "molasses.abr", kExamples + "molasses-conditions.abr",
                   "--npop", "300", "--eps", "1e-7", "--progress", "--report", report},
                  {0, ends[1]});
  const Ran ran = program.Wait();
  close(ends[1]);
  EXPECT_EQ(ran.code, 3);
  EXPECT_NE(ran.err.find("the output cannot be written"), std::string::npos) << ran.err;
  EXPECT_NE(BytesOf(report).find("Estimate was not completed:"), std::string::npos);
}

}  // namespace
}  // namespace velmora
