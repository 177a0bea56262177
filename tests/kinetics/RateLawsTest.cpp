#include <gtest/gtest.h>

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

/// The factors that the constants make, in the order of the terms' enumerators.
constexpr double kSubstrate[] = {4.0 / 13, 4.0 / 16, 40.0 / 103, 4.0 / 18, 4.0 / 15.5};
constexpr double kProduct[] = {1, 0.75, 0.60653065971263342, 0.5625};  // exp(-0.5)

TEST(GrowthRate, IsTheProductOfTheModelsTerms) {
  for (const Model& model : kModels) {
    KineticParameters p = HandConstants(model);
    RateLaws laws;
    double Cx = 2, Cs = 10, Cp = 5;
    const double expected = kSubstrate[static_cast<int>(model.substrate)] *
                            kProduct[static_cast<int>(model.product)] *
                            (model.cell == CellTerm::Lee ? 0.421875 : 1);
    EXPECT_NEAR(Rate(laws, Cx, Cs, Cp, p), expected, 1e-15) << model.name;
    EXPECT_EQ(laws.Evaluations(), 1);
  }
}

struct GuardCase {
  const char* name;
  BatchState at;  // before
  double CxAst, CpAst, exponent;
  BatchState after;
  double CxAstAfter, CpAstAfter;
};

const GuardCase kGuards[] = {
    {"trace of substrate", {1, 0.00009, 0}, 9, 9, 1, {1, 0, 0}, 9, 9},
    {"substrate at the floor", {1, 0.0001, 0}, 9, 9, 1, {1, 0.0001, 0}, 9, 9},
    {"product on an absent limit", {0, 5, 1}, 1, 1, 0, {0, 5, 1}, 1, 1.1},
    {"cells on an absent limit", {1, 5, 0}, 1, 1, 0, {1, 5, 0}, 1.1, 1},
    {"product beyond its limit", {1, 5, 7}, 9, 6, 1, {1, 5, 6}, 9, 6},
    {"cells beyond their limit", {8, 5, 1}, 6, 9, 1, {6, 5, 1}, 6, 9},
    {"beyond absent limits", {8, 5, 7}, 1, 1, 0, {8, 5, 7}, 1, 1}};

TEST(GrowthRate, ChangesItsArgumentsAtItsGuards) {
  for (const GuardCase& c : kGuards) {
    SCOPED_TRACE(c.name);
    KineticParameters p;
    p[At::muMax] = 0.3, p[At::Ks] = 2, p[At::Kis] = 1, p[At::Kip] = 1, p[At::u] = 1, p[At::B1] = 1;
    p[At::CxAst] = c.CxAst, p[At::CpAst] = c.CpAst, p[At::m] = p[At::n] = c.exponent;
    RateLaws laws;
    auto [Cx, Cs, Cp] = c.at;
    const double mu = Rate(laws, Cx, Cs, Cp, p);
    EXPECT_EQ(Cx, c.after.Cx);
    EXPECT_EQ(Cs, c.after.Cs);
    EXPECT_EQ(Cp, c.after.Cp);
    EXPECT_EQ(p[At::CxAst], c.CxAstAfter);
    EXPECT_EQ(p[At::CpAst], c.CpAstAfter);
    const bool atLimit = c.exponent != 0 && (Cp == c.CpAst || Cx == c.CxAst);
    EXPECT_EQ(mu == 0, Cs == 0 || atLimit);
  }
}

TEST(Catalogue, RecognisesEveryModelByItsRow) {
  for (const Model& model : kModels) {
    const KineticParameters p = HandConstants(model);
    const auto models = ModelsOf(p, {});
    ASSERT_FALSE(models.empty()) << model.name;
    EXPECT_EQ(models.front()->name, model.name);
  }
}

}  // namespace
}  // namespace velmora
