#include <gtest/gtest.h>

#include <map>

#include "cultivation/ConditionsSetUp.h"
#include "cultivation/Simulation.h"
#include "inference/Proposal.h"
#include "inference/Regression.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

/// Yxs 0.3 and Yps 0.4 exactly, a little growth to begin with, and samples out of order.
Experiment Batch() {
  Experiment e;
  e.time = {4, 0, 2, 6, 8};
  e.Cx = {2, 0.5, 1, 3.5, 3.5};
  e.Cs = {15, 20, 55.0 / 3, 10, 10};
  e.Cp = {2, 0, 2.0 / 3, 4, 4};
  e.finalTime = 5;
  return e;
}

std::map<At, double> ValuesOf(const std::vector<ProposedValue>& proposed, int place) {
  std::map<At, double> values;
  for (const ProposedValue& value : proposed)
    if (value.place == 0 || value.place == place) values[value.position] = value.value;
  return values;
}

TEST(Regression, FitsALineThroughTheOrigin) {
  // By hand: 7/5; residuals -0.4 and 0.2, so that s^2 = 0.2 and the error is sqrt(0.2 / 5).
  const Line line = LineThroughOrigin({1, 2}, {1, 3});
  EXPECT_DOUBLE_EQ(line.slope, 1.4);
  EXPECT_NEAR(line.error, 0.2, 1e-12);
  EXPECT_EQ(LineThroughOrigin({1, 2}, {-1, 0}).slope, 0);
  EXPECT_EQ(LineThroughOrigin({0, 0}, {1, 2}).slope, 0);
}

TEST(Regression, TellsGrowthFromCellsInProduction) {
  Changes changes = {{1, 2, 2}, {}, {}, {1, 1, 3}};
  changes.product = {0.6, 1.1, 1.3};  // 0.5 cells + 0.1 cellHours
  EXPECT_NEAR(LuedekingPiret(changes).alpha, 0.5, 1e-12);
  EXPECT_NEAR(LuedekingPiret(changes).beta, 0.1, 1e-12);
  changes.product = {0.4, 0.9, 0.7};  // beta -0.1: with alpha alone, 3.6/9
  EXPECT_NEAR(LuedekingPiret(changes).alpha, 0.4, 1e-12);
  EXPECT_EQ(LuedekingPiret(changes).beta, 0);
}

TEST(Regression, TakesChangesSinceTheFirstSample) {
  // By hand: (1 + 3)/2 2 h = 4 g h/L, then (3 + 6)/2 1 h and (6 + 8)/2 2 h more.
  const Experiment experiment{1, "", {0, 2, 3, 5}, {1, 3, 6, 8}, {20, 15, 8, 3}, {0, 1, 4, 5}, 5};
  const Changes changes = ChangesOf({&experiment, 1});
  EXPECT_EQ(changes.cells, (std::vector<double>{2, 5, 7}));
  EXPECT_EQ(changes.substrate, (std::vector<double>{5, 12, 17}));
  EXPECT_EQ(changes.product, (std::vector<double>{1, 4, 5}));
  EXPECT_EQ(changes.cellHours, (std::vector<double>{4, 8.5, 22.5}));
}

TEST(Proposal, ReadsTheConditionsOffTheData) {
  const std::vector experiments = {Batch(), Batch()};
  const auto values = ValuesOf(ProposeConditions(experiments, Production::PAC, Yields::Global), 2);
  const std::map<At, double> expected = {{At::Cx0, 0.5}, {At::Cs0, 20},  {At::Cp0, 0},
                                         {At::T, 8},     {At::Yxs, 0.3}, {At::YpsTyped, 0.4},
                                         {At::Kd, 0},    {At::ms, 0},    {At::Kdp, 0}};
  EXPECT_EQ(values, expected);
}

// The same batch with half the cells: one yield would serve neither. The product's is the same.
TEST(Proposal, GivesEachExperimentItsYieldWhereTheyDiffer) {
  std::vector experiments = {Batch(), Batch()};
  for (double& Cx : experiments[1].Cx) Cx /= 2;
  const auto proposed = ProposeConditions(experiments, Production::PAC, Yields::Global);
  EXPECT_EQ(ValuesOf(proposed, 1).at(At::Yxs), 0.3);
  EXPECT_EQ(ValuesOf(proposed, 2).at(At::Yxs), 0.15);
  EXPECT_EQ(ValuesOf(proposed, 2).at(At::YpsTyped), 0.4);
}

// Samples behind the highest Cx, where cells die, must not lower the yield. Cx is halved in each 2
// h; the first sample with fewer cells has 9 g/L of substrate.
TEST(Proposal, SeesCellsDie) {
  Experiment e = Batch();
  for (const double Cx : {1.75, 0.875, 0.4375}) {
    e.time.push_back(e.time.back() + 2);
    e.Cx.push_back(Cx);
    e.Cs.push_back(9);
    e.Cp.push_back(4);
  }
  e.time[4] = 6.5, e.time[5] = 8.5, e.time[6] = 10.5, e.time[7] = 12.5;
  const auto values =
      ValuesOf(ProposeConditions(std::vector{e}, Production::PAC, Yields::Global), 1);
  EXPECT_EQ(values.at(At::Yxs), 0.3);
  EXPECT_EQ(values.at(At::CsAst1), 9);
  // Least squares by hand over 6, 6.5, 8.5, 10.5 and 12.5 h: ln 2 times 14.2/29.8.
  EXPECT_NEAR(values.at(At::Kd), 0.3303, 1e-4);
}

TEST(Proposal, TakesUnseenCellsBackInTime) {
  Experiment e = Batch();
  e.Cx = {2, 0, 0.01, 3.5, 3.5};  // at 4, 0, 2, 6, 8 h
  const auto proposed = ProposeConditions(std::vector{e}, Production::PAC, Yields::Global);
  // From 2 g/L at 4 h; the least that is seen is 0.175, so that ln Cx rises by ln(3.5 / 0.175) from
  // 2 to 6 h at most.
  const double rate = std::log(20) / 4;
  EXPECT_NEAR(ValuesOf(proposed, 1).at(At::Cx0), 2 * std::exp(-4 * rate), 1e-5);
}

/// The curve of the conditions that are proposed for the first experiment.
ModelCurve Simulated(const std::vector<Experiment>& experiments, Production production,
                     Yields yields) {
  CultivationForm form;
  form.method = Method::Manual, form.production = production, form.yields = yields;
  form.model = "Monod", form.modelConfirmed = true;
  PutInto(form, ProposeConditions(experiments, production, yields), 1, '.');
  for (const ProposedRange& range : ProposeRanges(experiments, *FindModel("Monod")))
    PutInto(form, range.variable, '.');
  CultivationConditions conditions;
  EXPECT_FALSE(SalvarCondCult(form, 1, 1, '.', conditions).refusal);
  ModelCurves curves;
  EXPECT_TRUE(Manual(conditions, 1, curves).empty());
  return curves[0];
}

// Stoichiometric yields split the substrate, global ones do not: with either the same substrate is
// used for the same growth. Four digits are proposed.
TEST(Proposal, UsesTheSameSubstrateWithEitherYields) {
  const std::vector experiments = {Batch()};
  const ModelCurve global = Simulated(experiments, Production::PAC, Yields::Global);
  const ModelCurve split = Simulated(experiments, Production::PAC, Yields::Stoichiometric);
  EXPECT_GT(global.Cx[99], 3);
  for (std::size_t i = 0; i < 100; ++i) {
    EXPECT_NEAR(split.Cs[i], global.Cs[i], 0.02);
    EXPECT_NEAR(split.Cp[i], global.Cp[i], 0.02);
  }
}

// Of fermentations with 3 % noise, all true parameters lie inside the bounds in at least 95 %.
TEST(Proposal, BoundsHoldTheTruth) {
  int held = 0, all = 0;
  for (const Model& model : kModels)
    for (unsigned seed = 1; seed <= 10; ++seed, ++all) {
      const FitProblem problem = test::Fermentations(model, seed, 0.03);
      const auto ranges = FittedOf(ProposeRanges(problem.experiments, model));
      bool holds = true;
      for (const Parameter& parameter : kFittable) {
        const auto at = std::find_if(ranges.begin(), ranges.end(), [&](const FitVariable& range) {
          return range.position == parameter.position;
        });
        ASSERT_EQ(at != ranges.end(), Uses(model, parameter.position)) << model.name;
        if (at == ranges.end()) continue;
        const auto& [position, lower, upper, start] = *at;
        EXPECT_TRUE(0 < lower && lower < start && start < upper) << parameter.name;
        const double truth = problem.rows[0][position];
        holds = holds && lower <= truth && truth <= upper;
      }
      held += holds;
    }
  EXPECT_GE(held, 0.95 * all);
}

// Nothing is made up where a variable is 0 throughout, and nothing fails.
TEST(Proposal, LeavesOutWhatTheDataDoNotTell) {
  Experiment e = Batch();
  e.Cp.assign(5, 0);
  EXPECT_EQ(ProposeProduction(std::vector{e}), Production::PNAC);
  EXPECT_EQ(FittedOf(ProposeRanges(std::vector{e}, *FindModel("Hoppe"))).size(), 2u);
  e.Cx.assign(5, 0);
  const auto values =
      ValuesOf(ProposeConditions(std::vector{e, Experiment{}}, Production::PAC, Yields::Global), 1);
  EXPECT_EQ(values.count(At::Cx0) + values.count(At::Yxs) + values.count(At::YpsTyped), 0u);
}

}  // namespace
}  // namespace velmora
