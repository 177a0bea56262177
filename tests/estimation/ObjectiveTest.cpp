#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <tuple>

#include "estimation/Objective.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

/// No growth: Cx stays 2, Cp 0.5, and Cs falls from 10 by ms Cx = 0.2 g/(L h).
KineticParameters Resting() {
  KineticParameters p = test::BatchOf("Monod");
  for (const At position : {At::muMax, At::beta, At::Kd, At::Kdp}) p[position] = 0;
  p[At::Cx0] = 2, p[At::Cs0] = 10, p[At::Cp0] = 0.5, p[At::ms] = 0.1, p[At::T] = 9.9;
  return p;
}

/// Two experiments of different length. The scales are 4, 8, 1 and 2, 10, 1 (no product measured).
FitProblem TwoExperiments() {
  FitProblem problem;
  problem.experiments = {{1, "", {0, 5, 9.9}, {2, 4, 3}, {8, 8, 1}, {1, 0.5, 0}},
                         {2, "", {0, 12}, {1, 2}, {10, 5}, {0, 0}}};
  problem.rows = {Resting(), Resting()};
  problem.variables = {{At::muMax, 0.1, 0.5, 0.2}, {At::Ks, 1, 9, 3}};
  return problem;
}

TEST(Objective, SumsNormalisedSquaresOverAllButTheLastPoint) {
  const Objective objective(TwoExperiments());
  const SimulatedFit fit = objective.Simulate({});
  // Experiment 1, t = 0: ((2-2)/4)^2 + ((8-10)/8)^2 + (1-0.5)^2 = 0.3125; t = 5: ((4-2)/4)^2 +
  // ((8-9)/8)^2 + 0 = 0.265625. Experiment 2, t = 0: ((1-2)/2)^2 + 0 + (0-0.5)^2 = 0.5.
  EXPECT_NEAR(fit.score, 0.3125 + 0.265625 + 0.5, 1e-12);
  EXPECT_NEAR(fit.experiments[0].share.Cx, 0.25, 1e-12);
  EXPECT_NEAR(fit.experiments[0].share.Cs, 0.078125, 1e-12);
  EXPECT_NEAR(fit.experiments[1].share.Cp, 0.25, 1e-12);
  EXPECT_EQ(objective.UnscaledVariables(), 1);
  EXPECT_EQ(objective.Observations(), 15);
}

TEST(Objective, InterpolatesAndCarriesTheCurveOnBeyondItsEnd) {
  const SimulatedFit fit = Objective(TwoExperiments()).Simulate({});
  EXPECT_EQ(fit.experiments[0].simulated.Cs[0], 10);
  EXPECT_NEAR(fit.experiments[0].simulated.Cs[1], 9, 1e-12);    // between model points
  EXPECT_NEAR(fit.experiments[1].simulated.Cs[1], 7.6, 1e-12);  // at 12 h, the curve ends at 9.9 h
}

TEST(Objective, CarriesTheLastOfItsSegmentsOn) {
  FitProblem problem = TwoExperiments();
  for (KineticParameters& row : problem.rows) row[At::muMax] = 0.02;  // Cx bends
  const SimulatedExperiment second = Objective(problem).Simulate({}).experiments[1];
  const auto& [t, Cx] = std::tie(second.curve.time, second.curve.Cx);
  EXPECT_NEAR(second.simulated.Cx[1], Cx[99] + (12 - t[99]) * (Cx[99] - Cx[98]) / (t[99] - t[98]),
              1e-12);
}

TEST(Objective, ScalesByTheLargestValueAboveZero) {
  EXPECT_EQ(Objective::NormalisationScale(std::array{-1.0, 0.2, 0.2005, 0.1}), 0.2005);
  EXPECT_EQ(Objective::NormalisationScale(std::array{-1.0, -2.0}), 0);
}

TEST(Objective, GivesEveryExperimentItsCurve) {
  FitProblem problem = TwoExperiments();
  problem.rows[1][At::Cx0] = 3;
  const ModelCurves curves = Objective(problem).Simulate({}).Curves();
  EXPECT_EQ(curves[0].Cx[0], 2);
  EXPECT_EQ(curves[1].Cx[0], 3);
  EXPECT_EQ(curves[2], ModelCurve());
}

TEST(Objective, FindsTimesInAnyOrder) {
  FitProblem problem = TwoExperiments();
  problem.rows.resize(1);
  problem.rows[0][At::muMax] = 0.02;  // the curves bend
  const auto at = [&](const std::vector<double>& times) {
    problem.experiments = {{1, "", times, {2, 2, 2, 2}, {9, 1, 5, 10}, {1, 1, 1, 1}}};
    return Objective(problem).Simulate({}).experiments[0].simulated.Cs;
  };
  const auto sorted = at({0, 1, 5, 9});
  EXPECT_LT(4 * (sorted[0] - sorted[1]), sorted[2] - sorted[3]);
  EXPECT_EQ(at({9, 1, 5, 0}), (std::vector{sorted[3], sorted[1], sorted[2], sorted[0]}));
}

TEST(Objective, ScoresManyCandidatesEachOnItsOwn) {
  FitProblem problem = TwoExperiments();
  problem.variables = {{At::Yxs, 0, 1, 0.3}, {At::ms, 0, 1, 0.1}};
  const Objective objective(problem);
  const std::vector<double> candidates{0.3, 0.1, 0, 0.1, 0.3, 0.2};  // Yxs = 0 divides by zero
  std::array<CandidateScore, 3> scores;
  Objective::Workspace workspace;
  objective.Score(candidates, scores, workspace);
  EXPECT_EQ(scores[0].score, Objective(TwoExperiments()).Simulate({}).score);
  ASSERT_TRUE(scores[1].fault);
  EXPECT_EQ(scores[1].fault->place, 1);
  ASSERT_FALSE(scores[2].fault);
  EXPECT_EQ(scores[2].score, objective.Simulate(std::array{0.3, 0.2}).score);
  EXPECT_NE(scores[2].score, scores[0].score);
}

/// Among the candidates are some that fault and some for which the model has another kernel.
TEST(Objective, ScoresBlocksOfAnySizeToTheSameBitsAsAlone) {
  FitProblem problem = test::TwoBatches();
  problem.variables = {{At::muMax, 0, 1, 0.2},
                       {At::Ks, 0, 30, 10},
                       {At::n, 0, 3, 1},
                       {At::m, 0, 3, 1},
                       {At::u, 0, 2, 1}};
  const Objective objective(problem);
  std::vector<double> candidates;
  for (int i = 0; i < 60; ++i)
    candidates.insert(candidates.end(),
                      {0.01 * i, 0.5 * (i % 9), i % 7 == 0 ? 0 : 0.1 * (i % 11),
                       i % 5 == 0 ? 0 : 0.1 * (i % 13), i % 8 == 1 ? 0 : 0.25 * (i % 6 + 1)});
  candidates[5 * 20] = 1e300;
  for (const std::size_t count : {2U, 7U, 20U, 25U, 60U}) {
    std::vector<CandidateScore> scores(count);
    std::vector<double> residuals(count * objective.Scored());
    Objective::Workspace workspace(0, 2), alone;
    objective.Score(std::span(candidates).first(5 * count), scores, residuals, workspace);
    for (std::size_t i = 0; i < count; ++i) {
      CandidateScore one;
      std::vector<double> its(objective.Scored());
      objective.Score(std::span(candidates).subspan(5 * i, 5), std::span(&one, 1), its, alone);
      ASSERT_EQ(scores[i].fault, one.fault) << i;
      if (one.fault) continue;
      EXPECT_EQ(scores[i].score, one.score) << i;
      const auto candidate = std::span(candidates).subspan(5 * i, 5);
      EXPECT_EQ(one.score, objective.Simulate(candidate).score) << i;
      EXPECT_TRUE(std::equal(its.begin(), its.end(),
                             residuals.begin() + static_cast<std::ptrdiff_t>(i * its.size())));
    }
    EXPECT_EQ(workspace.Evaluations(), alone.Evaluations());
  }
}

TEST(Objective, NamesTheExperimentOfAFault) {
  FitProblem problem = TwoExperiments();
  problem.rows[1][At::T] = 0;
  std::optional<ArithmeticFault> fault;
  try {
    Objective(problem).Simulate({});
  } catch (const ArithmeticFault& thrown) {
    fault = thrown;
  }
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->kind, FaultKind::DivisionByZero);
  EXPECT_EQ(fault->term, FaultTerm::Interpolation);
  EXPECT_EQ(fault->place, 2);
}

}  // namespace
}  // namespace velmora
