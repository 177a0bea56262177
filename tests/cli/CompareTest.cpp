// Comparisons as a user runs them.
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

using nlohmann::json;
using Compare = CommandLine;

// One batch cannot tell a Contois term from a Monod one: its cells are what its substrate left.
TEST_F(Compare, RanksModelsWithStartsOfTheirOwn) {
  const std::string compare = "compare " + kBoth + "--models Aiba,Contois,Monod,Wu,Monod ";
  const Ran ran = RunCli(compare + "--json --report " + (folder_ / "models.rtf"));
  ASSERT_EQ(ran.code, 0) << ran.err;
  const json compared = json::parse(ran.out);
  const json& models = compared.at("models");
  ASSERT_EQ(models.size(), 4u);
  EXPECT_EQ(compared.at("values"), 24);
  EXPECT_EQ(compared.at("notToldApart"), json::parse(R"(["Monod","Contois","Aiba"])"));
  double weights = 0;
  for (const json& model : models) {
    weights += model.at("weight").get<double>();
    const double n = 24, k = static_cast<double>(model.at("parameters").size()) + 1;
    EXPECT_NEAR(model.at("aicc"),
                n * std::log(model.at("sumOfSquaredErrors").get<double>() / n) + 2 * k +
                    2 * k * (k + 1) / (n - k - 1),
                1e-9);
  }
  EXPECT_NEAR(weights, 1, 1e-12);
  // The conditions hold Ks between 1 and 40 g/L; the data propose 0.075 to 150 for Monod.
  EXPECT_EQ(models.at(0).at("parameters").at(1).at("upper"), 150);
  EXPECT_NE(BytesOf(folder_ / "models.rtf").find("Best model: Monod"), std::string::npos);

  const std::string text = RunCli(compare + "--language pt").out;
  EXPECT_NE(text.find("\nMelhor modelo: Monod\nµ = µmax·Cs/(Cs + Ks)\nµmáx = 0.180 ± 0.009 1/h\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  0.003000  "), std::string::npos) << "as many digits as its neighbours";
}

TEST_F(Compare, PrintsALineForEachModelThatIsDone) {
  const std::string compare =
      "compare " + kBoth + "--models Contois,Monod --progress --digits all ";
  const std::string text = RunCli(compare).out;
  EXPECT_TRUE(text.starts_with("models 1 of 2   ")) << text;
  EXPECT_NE(text.find("\nmodels 2 of 2   0 s left\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nµmáx = 0.18033400"), std::string::npos) << text;
  EXPECT_NE(text.find("  0.0030004410759663"), std::string::npos) << text;
}

TEST_F(Compare, RefusesWhatItCannotCompare) {
  ExpectRefusal("compare " + kBoth + "--models Monod,Monad", 2, "there is no model \"Monad\"");
  ExpectRefusal("compare " + kBoth + "--iu 5", 1, "--iu: ");
  ExpectRefusal("compare " + kBoth + "--report " + kExamples + "molasses.abr", 2, "input file");
  ExpectRefusal("compare " + kExamples + "yeast-nine.abr " + kConditions, 1, "");
}

TEST_F(Compare, PrintsWhatIsDoneOnASignal) {
  Program program(
      {"compare", kExamples + "yeast-nine.abr", kExamples + "yeast-nine-conditions.abr", "--json"});
  while (!program.Hears(SIGINT)) std::this_thread::yield();
  program.Send(SIGINT);
  const Ran ran = program.Wait();
  EXPECT_EQ(ran.code, 130) << ran.err;
  const json compared = json::parse(ran.out);
  EXPECT_EQ(compared.at("models").size() + compared.at("notRanked").size(), 32u);
  EXPECT_EQ(compared.at("notRanked").back().at("reason"), "stopped before the end of its search");
}

}  // namespace
}  // namespace velmora
