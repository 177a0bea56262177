// What the command line proposes from the data, and what it remarks on them.
#include <nlohmann/json.hpp>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

using nlohmann::json;
using CliPropose = CommandLine;

// Nothing but the data and a model is given, and the fit runs.
TEST_F(CliPropose, MakesConditionsFromTheDataAlone) {
  const std::string file = folder_ / "c.abr";
  const Ran made = RunCli("conditions " + kMolasses + "--model Aiba --propose -o " + file);
  EXPECT_EQ(made.code, 0) << made.err;
  // By hand, from 8 differences to the first sample: sums of products 5040.56 and 18742.9.
  EXPECT_NE(made.out.find("  Yxs = 0.2689: slope of cells formed"), std::string::npos) << made.out;
  EXPECT_NE(made.out.find("  1:T = 45: the time of the last sample"), std::string::npos);
  const json fit = json::parse(RunCli("fit " + kMolasses + file + " --json").out);
  EXPECT_EQ(fit.at("parameters").size(), 3u);
}

TEST_F(CliPropose, LeavesTheLastWordToTheUser) {
  const std::string file = folder_ / "c.abr";
  const Ran made = RunCli("conditions " + kMolasses +
                          "--model Monod --propose --set Yxs=0.27 --set 1:Cx0=1 --set 1:Ks=11 "
                          "--fit MiMax=0.2:0.1:0.4 --language pt -o " +
                          file);
  EXPECT_EQ(made.code, 0) << made.err;
  for (const char* const given : {"Yxs", "Cx0", "Ks ", "MiMax"})
    EXPECT_EQ(made.out.find(given), std::string::npos) << made.out;
  EXPECT_NE(made.out.find("inclinação de produto formado"), std::string::npos) << made.out;
  const json check = json::parse(RunCli("check --json " + file).out);
  EXPECT_EQ(check.at("fitted").dump(), R"([{"lower":0.1,"name":"MiMax","start":0.2,"upper":0.4}])");
  const json start = json::parse(RunCli("simulate " + kMolasses + file + " --json").out);
  EXPECT_EQ(start.at("experiments").at(0).at("Cx").at(0), 1);
}

TEST_F(CliPropose, NeedsProductionAndYieldsWithoutIt) {
  const std::string start = "conditions " + kMolasses + "--model Monod -o " + (folder_ / "c.abr");
  ExpectRefusal(start + " --yields global", 2, "--product is required");
  ExpectRefusal(start + " --product PAC", 2, "--yields is required");
}

// A slip of the pen in the fifth sample: 5.2 for 58.518.
TEST_F(CliPropose, RemarksOnTheData) {
  std::string bytes = BytesOf(kExamples + "molasses.abr");
  bytes.replace(bytes.find("58.518"), 6, "5.2");
  const std::string file = folder_ / "slip.abr";
  WriteFile(file, bytes);
  const Ran check = RunCli("check " + file);
  EXPECT_EQ(check.code, 0);
  EXPECT_NE(check.out.find("\nexperiment 1, row 5: Cs = 5.2 g/L lies far off"), std::string::npos)
      << check.out;
  const json remark = json::parse(RunCli("check --json " + file).out).at("remarks").at(0);
  EXPECT_EQ(remark.at("kind"), "far off");
  EXPECT_EQ(remark.at("row"), 5);
  EXPECT_EQ(remark.at("values").at(0), 5.2);
}

}  // namespace
}  // namespace velmora
