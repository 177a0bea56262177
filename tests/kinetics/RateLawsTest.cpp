#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "kinetics/BatchBalances.h"
#include "kinetics/KineticParameters.h"
#include "kinetics/Modelos.h"
#include "kinetics/RateLaws.h"

namespace velmora {
namespace {

double Rate(RateLaws& laws, double& Cx, double& Cs, double& Cp, KineticParameters& p) {
  return laws.GrowthRate(Cx, Cs, Cp, p[At::muMax], p[At::Ks], p[At::Kis], p[At::Kip], p[At::CxAst],
                         p[At::CpAst], p[At::m], p[At::n], p[At::u], p[At::v], p[At::C], p[At::B],
                         p[At::B1], p[At::B2], p[At::G], p[At::H1]);
}

/// muMax 0.4, Ks 3 and the constants below at Cs 10, Cx 2, Cp 5 make factors that a hand computes:
/// Andrews 4/18, Wu 4/15.5, Hoppe 15/20, Levenspiel and Lee powers of 0.75.
KineticParameters HandConstants(const Model& model) {
  KineticParameters p;
  p[At::muMax] = 0.4, p[At::Ks] = 3, p[At::Kis] = 20, p[At::u] = 2, p[At::v] = 2;
  p[At::Kip] = model.product == ProductTerm::Aiba ? 0.1 : 15;
  p[At::CpAst] = 20, p[At::n] = 2, p[At::CxAst] = 8, p[At::m] = 3;
  SetModelSwitches(model, p);
  return p;
}

double HandSubstrate(SubstrateTerm term) {
  switch (term) {
    case SubstrateTerm::Monod:
      return 4.0 / 13;
    case SubstrateTerm::Contois:
      return 4.0 / 16;
    case SubstrateTerm::Moser:
      return 40.0 / 103;
    case SubstrateTerm::Andrews:
      return 4.0 / 18;
    case SubstrateTerm::Wu:
      return 4.0 / 15.5;
  }
  return 0;
}

double HandProduct(ProductTerm term) {
  switch (term) {
    case ProductTerm::Hoppe:
      return 0.75;
    case ProductTerm::Aiba:
      return 0.60653065971263342;  // exp(-0.5)
    case ProductTerm::Levenspiel:
      return 0.5625;
    case ProductTerm::None:
      break;
  }
  return 1;
}

TEST(GrowthRate, IsTheProductOfTheModelsTerms) {
  for (const Model& model : kModels) {
    KineticParameters p = HandConstants(model);
    RateLaws laws;
    double Cx = 2, Cs = 10, Cp = 5;
    const double lee = model.cell == CellTerm::Lee ? 0.421875 : 1;
    const double expected = HandSubstrate(model.substrate) * HandProduct(model.product) * lee;
    EXPECT_NEAR(Rate(laws, Cx, Cs, Cp, p), expected, 1e-15) << model.name;
    EXPECT_EQ(laws.Evaluations(), 1);
  }
}

struct GuardCase {
  const char* name;
  State at;             // before
  double CxAst, CpAst;  // before
  double m, n;
  State after;
  double CxAstAfter, CpAstAfter;
};
void PrintTo(const GuardCase& c, std::ostream* out) {
  *out << c.name;
}
class Guards : public testing::TestWithParam<GuardCase> {};

TEST_P(Guards, ChangeTheArguments) {
  const GuardCase& c = GetParam();
  KineticParameters p;
  p[At::muMax] = 0.3, p[At::Ks] = 2, p[At::Kis] = 1, p[At::Kip] = 1, p[At::u] = 1, p[At::B1] = 1;
  p[At::CxAst] = c.CxAst, p[At::CpAst] = c.CpAst, p[At::m] = c.m, p[At::n] = c.n;
  RateLaws laws;
  double Cx = c.at.Cx, Cs = c.at.Cs, Cp = c.at.Cp;
  const double mu = Rate(laws, Cx, Cs, Cp, p);
  EXPECT_EQ(Cx, c.after.Cx);
  EXPECT_EQ(Cs, c.after.Cs);
  EXPECT_EQ(Cp, c.after.Cp);
  EXPECT_EQ(p[At::CxAst], c.CxAstAfter);
  EXPECT_EQ(p[At::CpAst], c.CpAstAfter);
  const bool stopped =
      c.after.Cs == 0 || (c.n != 0 && Cp == c.CpAst) || (c.m != 0 && Cx == c.CxAst);
  EXPECT_EQ(mu == 0, stopped);
}

INSTANTIATE_TEST_SUITE_P(
    GrowthRate, Guards,
    testing::Values(GuardCase{"TraceOfSubstrate", {1, 0.00009, 0}, 9, 9, 1, 1, {1, 0, 0}, 9, 9},
                    GuardCase{
                        "SubstrateAtTheFloor", {1, 0.0001, 0}, 9, 9, 1, 1, {1, 0.0001, 0}, 9, 9},
                    GuardCase{"ProductOnAbsentLimit", {0, 5, 1}, 1, 1, 0, 0, {0, 5, 1}, 1, 1.1},
                    GuardCase{"CellsOnAbsentLimit", {1, 5, 0}, 1, 1, 0, 0, {1, 5, 0}, 1.1, 1},
                    GuardCase{"ProductBeyondLimit", {1, 5, 7}, 9, 6, 1, 1, {1, 5, 6}, 9, 6},
                    GuardCase{"CellsBeyondLimit", {8, 5, 1}, 6, 9, 1, 1, {6, 5, 1}, 6, 9},
                    GuardCase{"BeyondAbsentLimits", {8, 5, 7}, 1, 1, 0, 0, {8, 5, 7}, 1, 1}));

TEST(Balances, AddTheirTermsByHand) {
  RateLaws laws;
  EXPECT_DOUBLE_EQ(laws.CellBalance(2, 0.3, 1, 0.1), 0.4);
  // 2 x (0.01 + 0.3/0.5 + 1 x (0.5 x 0.3 + 0.05)/0.4) = 2 x 1.11
  EXPECT_DOUBLE_EQ(laws.SubstrateBalance(2, 0.01, 0.3, 0.5, 1, 0.5, 1, 0.05, 0.4), -2.22);
  EXPECT_DOUBLE_EQ(laws.ProductBalance(2, 0.5, 0.3, 1, 0.05, 0.01, 10), 0.3);
  EXPECT_EQ(laws.Evaluations(), 3);
}

TEST(Catalogue, SetsSwitchesAndNeutralValues) {
  KineticParameters p;
  for (double& value : p.values) value = 7;
  SetModelSwitches(*FindModel("Contois-Levenspiel-Lee"), p);
  const std::array<double, 14> expected{1, 1, 7, 7, 7, 7, 1, 0, 0, 1, 0, 0, 0, 0};
  for (int i = 0; i < 14; ++i)
    EXPECT_EQ(p[10 + i], expected[static_cast<std::size_t>(i)]) << 10 + i;
  EXPECT_EQ(p[At::ms], 7);
  EXPECT_EQ(FindModel("Lee-Wu"), nullptr);
  EXPECT_EQ(FindModel("monod"), nullptr);
}

TEST(Catalogue, RecognisesEveryModelByItsRow) {
  for (const Model& model : kModels) {
    const KineticParameters p = HandConstants(model);
    const auto models = ModelsOf(p, {});
    ASSERT_FALSE(models.empty()) << model.name;
    EXPECT_EQ(models.front()->name, model.name);
  }
  KineticParameters linear = HandConstants(*FindModel("Moser"));
  linear[At::u] = 1;
  EXPECT_EQ(ModelsOf(linear, {}).size(), 2U) << "Monod and Moser";
  const std::array fitted{At::u};
  ASSERT_EQ(ModelsOf(linear, fitted).size(), 1U);
  EXPECT_EQ(ModelsOf(linear, fitted).front()->name, "Moser");
}

}  // namespace
}  // namespace velmora
