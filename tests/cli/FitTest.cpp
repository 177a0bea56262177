// Fits as a user runs them: results, reports, faults and signals.
#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

using nlohmann::json;
using Fit = CommandLine;

constexpr const char* kPngBegins = "89504e470d0a1a0a";

/// What `score` says of the values that a fit of these files found.
json ScoreOfResult(const std::string& files, const json& fit) {
  std::string values;
  for (const json& parameter : fit.at("parameters"))
    values +=
        " --set " + parameter.at("name").get<std::string>() + "=" + parameter.at("value").dump();
  return json::parse(RunCli("score " + files + " --json" + values).out);
}

// Zentou et al. 2019 report 0.179 1/h and 11.37 g/L for these data; the fit must come within one
// deviation of it.
TEST_F(Fit, FitsMolassesNearThePublishedValues) {
  const Ran ran = RunCli("fit " + kBoth + "--method ED --npop 10000 --eps 0.0000001 --json");
  ASSERT_EQ(ran.code, 0) << ran.err;
  EXPECT_TRUE(ran.out.starts_with(R"({"parameters":[{"name":"MiMax","label":"µmáx =","position":8,)"
                                  R"("start":0.2,"lower":0.05,"upper":0.5,"value":0.17)"))
      << ran.out;
  const json fit = json::parse(ran.out);
  const json& muMax = fit.at("parameters").at(0);
  const json& Ks = fit.at("parameters").at(1);
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
  const json score = ScoreOfResult(kBoth, fit);
  EXPECT_EQ(score.at("score"), sum);
  const json& share = score.at("experiments").at(0);
  EXPECT_NEAR(
      share.at("Cx").get<double>() + share.at("Cs").get<double>() + share.at("Cp").get<double>(),
      sum, 1e-15);
}

// The results' own texts stand as they are; what the data tell follows them.
TEST_F(Fit, SaysWhatTheDataTell) {
  const std::string text = RunCli("fit " + kBoth).out;
  EXPECT_NE(
      text.find("\nEnd of estimation.\nWhat the data tell:\nµmáx: determined only together with "
                "Ks (correlation 0.9"),
      std::string::npos)
      << text;
  // 0.1803 with a deviation of 0.0086, and 11.5 with one of 3.2.
  EXPECT_TRUE(text.ends_with("µmáx = 0.180 ± 0.009 1/h\nKs = 12 ± 3 g/L\n")) << text;
  EXPECT_NE(RunCli("fit " + kBoth + "--digits all").out.find("\nµmáx = 0.18033400"),
            std::string::npos);
  const std::string levenspiel =
      "fit " + kBoth + "--model Levenspiel --fit CpAst=50:10:100 --fit n=1:0.2:4 ";
  const json fit = json::parse(RunCli(levenspiel + "--language pt --json").out);
  const json& verdict = fit.at("parameters").at(2).at("verdict");
  EXPECT_EQ(verdict.at("kind"), "open above");
  EXPECT_EQ(verdict.at("text"),
            "aberto acima: com 100, seu limite superior, o ajuste é quase tão bom");
  EXPECT_EQ(fit.at("verdict").at("kind"), "sound");
  EXPECT_EQ(fit.at("verdict").at("worstPoint").at("time"), 16);
  // The score of the nine batches has kinks on which the optimum looks steep from nearby; the three
  // parameters can all be larger or smaller together.
  const json yeast = json::parse(RunCli("fit " + kExamples + "yeast-nine.abr " + kExamples +
                                        "yeast-nine-conditions.abr --json")
                                     .out);
  EXPECT_EQ(yeast.at("parameters").at(0).at("verdict").at("kind"), "open above");
  EXPECT_EQ(yeast.at("parameters").at(2).at("verdict").at("kind"), "only together");
  const json hasty = json::parse(RunCli("fit " + kBoth + "--method ED --json").out);
  EXPECT_EQ(hasty.at("verdict").at("kind"), "not at the minimum");
}

TEST_F(Fit, WritesAReportBesideTheResults) {
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

  ExpectRefusal("fit " + kBoth + "--report /nowhere/fit.rtf", 3, "/nowhere/fit.rtf: ");
  ExpectRefusal("compare " + kBoth + "--report /nowhere/fit.rtf", 3, "/nowhere/fit.rtf: ");

  const std::string copy = folder_ / "copy.abr";
  WriteFile(copy, BytesOf(kExamples + "molasses.abr"));
  ExpectRefusal("fit " + copy + " " + kConditions + "--report " + copy, 2, "is the input file");
  EXPECT_EQ(BytesOf(copy), BytesOf(kExamples + "molasses.abr"));
}

TEST_F(Fit, ReportsArithmeticFaults) {
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

TEST_F(Fit, GivesTheIntervalsThatWereAskedFor) {
  const std::string fit =
      "fit " + kBoth + "--uncertainty profile --uncertainty bootstrap --replicates 40 ";
  const json ran = json::parse(RunCli(fit + "--json").out);
  EXPECT_EQ(ran.at("method"), "LM");
  const json& Ks = ran.at("parameters").at(1);
  EXPECT_EQ(Ks.at("interval").at("method"), "profile");
  EXPECT_EQ(Ks.at("interval").at("level"), 0.95);
  EXPECT_LT(Ks.at("interval").at("lower"), Ks.at("value"));
  EXPECT_GT(Ks.at("interval").at("upper"), Ks.at("value"));
  EXPECT_GT(Ks.at("interval").at("profile").size(), 8U);
  EXPECT_EQ(Ks.at("intervals").at(1).at("replicates"), 40);
  const std::string text = RunCli(fit + "--language pt").out;
  EXPECT_NE(text.find("\nIntervalos de 95 % por bootstrap, 40 ajustes:\nµmáx = 0.1"),
            std::string::npos)
      << text;
  // Limits that the data do not set: sugar is never as high as Kis.
  const std::string andrews = Conditions("andrews.abr",
                                         "--model Andrews --product PAC --yields global "
                                         "--set MiMax=0.18 --set Ks=11 --fit Kis=500:100:1e6");
  const json open =
      json::parse(RunCli("fit " + kMolasses + andrews + " --uncertainty profile --json").out);
  EXPECT_TRUE(open.at("parameters").at(0).at("interval").at("upper").is_null());
}

// The start vector scores 4.1292, and this seed's first two generations end above it.
TEST_F(Fit, SaysThatTheResultIsWorseThanTheStart) {
  const std::string worse = "fit " + kExamples + "yeast-nine.abr " + kExamples +
                            "yeast-nine-conditions.abr --method ED --iu 4321 --eps 1e-7 ";
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
TEST_F(Fit, KeepsTheBestVectorBeforeAFault) {
  const std::string moser = Conditions("moser.abr",
                                       "--model Moser --product PAC --yields global "
                                       "--fit MiMax=0.2:0.05:0.5 --fit Ks=10:1:4000 "
                                       "--fit u=1:0.5:164.5");
  const std::string fit =
      "fit " + kMolasses + moser + " --method ED --npop 300 --eps 1e-7 --iu 4000 ";
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
  EXPECT_EQ(ScoreOfResult(kMolasses + moser, found).at("score"), found.at("sumOfSquaredErrors"));
  EXPECT_NE(BytesOf(folder_ / "fit.rtf").find("are those of generation 2."), std::string::npos);

  const Ran text = RunCli(fit);
  EXPECT_EQ(text.code, 4);
  EXPECT_NE(text.out.find("\nThe best values found before this are those of generation 2.\n"
                          "What the data tell:\n"),
            std::string::npos);
  EXPECT_EQ(found.at("verdict").at("kind"), "unfinished");
}

TEST_F(Fit, ReportsWhyOnePointGivesNoDeviations) {
  const std::string files = FitOf("t,Cs,Cx,Cp\n0,10,1,0\n", "--set T=5");
  const Ran ran = RunCli("fit " + files + " --report " + (folder_ / "fit.rtf"));
  EXPECT_EQ(ran.code, 4);
  EXPECT_NE(BytesOf(folder_ / "fit.rtf").find("The deviations could not be computed: the measured"),
            std::string::npos);
}

/// A fit whose first population, all of it scored before the first generation, has `members`.
std::vector<std::string> LongFit(const std::string& members) {
  return {"fit",    kExamples + "molasses.abr",           "--method", "ED", "--npop", members,
          "--json", kExamples + "molasses-conditions.abr"};
}

void WaitUntil(const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  bool held = holds();
  for (; !held && std::chrono::steady_clock::now() < end; held = holds()) std::this_thread::yield();
  ASSERT_TRUE(held);
}

TEST_F(Fit, StopsOnASignalAndPrintsWhatItFound) {
  for (const auto& [signal, code] :
       {std::pair{SIGINT, 130}, std::pair{SIGTERM, 143}, std::pair{SIGHUP, 129}}) {
    Program program(LongFit("120000"));
    WaitUntil([&, heard = signal] { return program.Hears(heard); });
    program.Send(signal);
    const Ran ran = program.Wait();
    EXPECT_EQ(ran.code, code) << ran.err;
    const json fit = json::parse(ran.out);
    EXPECT_EQ(fit.at("outcome"), "stopped");
    // It stops before the first generation: only the initial population has been scored.
    EXPECT_EQ(fit.at("functionCalls"), 120000);
    EXPECT_GT(fit.at("parameters").at(0).at("value"), 0.05);
  }
}

TEST_F(Fit, EndsAtOnceOnASecondSignal) {
  Program program(LongFit("600000"));
  WaitUntil([&] { return program.Hears(SIGINT); });
  program.Send(SIGINT);
  WaitUntil([&] { return !program.Hears(SIGINT); });
  program.Send(SIGTERM);
  const Ran ran = program.Wait();
  EXPECT_EQ(ran.signal, SIGTERM);
  EXPECT_EQ(ran.out, "");
}

TEST_F(Fit, LeavesASignalIgnoredThatItWasStartedToIgnore) {
  for (const int ignored : {SIGINT, SIGHUP}) {
    Program program(LongFit("60000"), {ignored});
    WaitUntil([&] { return program.Hears(SIGTERM); });
    program.Send(ignored);
    const Ran ran = program.Wait();
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(json::parse(ran.out).at("outcome"), "converged");
  }
}

// The report is written before the results, which wait here until the pipe is read.
TEST_F(Fit, PrintsTheResultsOfASearchThatEndedBeforeCtrlC) {
  FullPipe pipe;
  const std::string report = folder_ / "fit.rtf";
  std::vector<std::string> arguments = LongFit("100");
  arguments.insert(arguments.end(), {"--report", report});
  Program program(arguments, {.out = pipe.WriteEnd()});
  WaitUntil([&] { return !BytesOf(report).empty(); });
  program.Send(SIGINT);
  EXPECT_EQ(json::parse(pipe.Read()).at("outcome"), "converged");
  EXPECT_EQ(program.Wait().code, 0);
}

// The results go to standard error where standard output is a full disk.
TEST_F(Fit, RescuesResultsThatCannotBeWritten) {
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  Program program({"fit", kExamples + "molasses.abr", kExamples + "molasses-conditions.abr"},
                  {.out = full});
  close(full);
  const Ran ran = program.Wait();
  EXPECT_EQ(ran.code, 3);
  EXPECT_NE(ran.err.find("\nKs = 11.5"), std::string::npos) << ran.err;
}

TEST_F(Fit, WritesTheReportWhereNobodyReadsTheProgress) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  close(ends[0]);
  const std::string report = folder_ / "fit.rtf";
  Program program(
      {"fit", kExamples + "molasses.abr", kExamples + "molasses-conditions.abr", "--method", "ED",
       "--npop", "300", "--eps", "1e-7", "--progress", "--report", report},
      {.out = ends[1]});
  const Ran ran = program.Wait();
  close(ends[1]);
  EXPECT_EQ(ran.code, 3);
  EXPECT_NE(ran.err.find("the output cannot be written"), std::string::npos) << ran.err;
  EXPECT_NE(BytesOf(report).find("Estimate was not completed:"), std::string::npos);
}

}  // namespace
}  // namespace velmora
