#include <gtest/gtest.h>

#include "estimation/Marquardt.h"
#include "inference/VerdictTexts.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

using enum FindingKind;
using Kinds = std::vector<FindingKind>;

Kinds KindsOf(const ParameterVerdict& verdict) {
  Kinds kinds;
  for (const Finding& finding : verdict.findings) kinds.push_back(finding.kind);
  return kinds;
}

/// Batches of a model with a pattern of errors of 2 %, and the verdicts on its fit.
struct Fitted {
  Fitted(std::string_view model, std::initializer_list<double> Cs0,
         std::vector<FitVariable> variables)
      : problem(test::SampledBatches(model, Cs0)) {
    problem.variables = std::move(variables);
    int k = 0;
    for (Experiment& experiment : problem.experiments)
      for (std::vector<double>* const values : {&experiment.Cx, &experiment.Cs, &experiment.Cp})
        for (double& value : *values) value *= 1 + 0.02 * ((k++ * 7) % 5 - 2) / 2;
    SearchObserver nobody;
    result = SearchMarquardt(problem, {}, nobody);
    verdict = JudgeFit(problem, result, ComputeDeviations(problem, result.best));
  }
  Kinds Of(std::size_t j) const { return KindsOf(verdict.parameters.of.at(j)); }

  FitProblem problem;
  SearchResult result;
  FitVerdict verdict;
};

// muMax 0.3, Ks 8 and Kis 90 made the data. Below Ks growth is of the first order: only muMax/Ks is
// seen. Kis is not seen where Cs stays far below it.
TEST(Verdicts, TellWhatTheDataDetermine) {
  const FitVariable muMax{At::muMax, 0.01, 5, 0.2}, Ks{At::Ks, 0.5, 80, 10};
  const Fitted wide("Monod", {2, 10, 80}, {muMax, Ks});
  EXPECT_EQ(wide.Of(0), Kinds());
  EXPECT_EQ(wide.Of(1), Kinds());
  EXPECT_EQ(wide.verdict.parameters.CountDetermined(), 2u);
  EXPECT_EQ(wide.verdict.kind, RunKind::Sound);

  const Fitted bounded("Monod", {2, 10, 80}, {muMax, {At::Ks, 0.5, 4, 3}});
  EXPECT_EQ(bounded.Of(1), Kinds({AtUpperBound}));
  EXPECT_EQ(NameOf(bounded.verdict.parameters.of[1]), "at its upper bound");
  EXPECT_EQ(Worded(bounded.verdict.parameters.of[1], {Language::Portuguese, ','}),
            "no seu limite superior 4: o melhor valor pode estar acima");

  const Fitted raised("Monod", {2, 10, 80}, {muMax, {At::Ks, 12, 20, 15}});
  EXPECT_EQ(raised.Of(1), Kinds({AtLowerBound}));

  const Fitted firstOrder("Monod", {2}, {muMax, Ks});
  EXPECT_EQ(firstOrder.Of(0).back(), Together);
  EXPECT_EQ(firstOrder.verdict.parameters.of[0].findings.back().other, At::Ks);
  EXPECT_GT(firstOrder.verdict.parameters.of[0].findings.back().value, 0.95);

  // No term of Monod's has Kip.
  const Fitted idle("Monod", {20, 40}, {muMax, {At::Kip, 5, 500, 50}});
  EXPECT_EQ(idle.Of(1), Kinds({OpenBelow, OpenAbove, NotAlone, NoData}));

  const Fitted dilute("Andrews", {2, 10}, {muMax, Ks, {At::Kis, 5, 5000, 50}});
  EXPECT_EQ(dilute.Of(2), Kinds({OpenBelow, OpenAbove, Together, NoData, WideDeviation}));
  EXPECT_TRUE(Worded(dilute.verdict.parameters.of[2], {})
                  .ends_with("; no data where it acts: Cs is never above Kis; its deviation is "
                             "larger than its value"));
}

struct Sampled {
  const char* model;
  At position;
  double seen;    // a value that the samples show
  double unseen;  // one too far off
  MissingSample missing;
};

void PrintTo(const Sampled& row, std::ostream* out) {
  *out << row.model << " " << ParameterAt(row.position).name;
}

class SamplesWhere : public testing::TestWithParam<Sampled> {};

// At the edge of each rule; the last sample is not scored.
TEST_P(SamplesWhere, AParameterActs) {
  const auto& [model, position, seen, unseen, missing] = GetParam();
  FitProblem problem{{{}}, {test::BatchOf(model)}, {}};
  Experiment& experiment = problem.experiments[0];
  experiment.time = {0, 10, 20, 30};
  experiment.Cx = {1, 10, 20, 21};
  experiment.Cs = {75, 40, 10, 0};
  experiment.Cp = {0.1, 15, 30, 31};
  problem.variables = {{position, 1e-9, 1e9, 1}};
  const auto found = [&](double value) {
    const ParameterVerdicts verdicts = JudgeParameters(problem, std::vector{value}, {});
    std::vector<MissingSample> where;
    for (const Finding& finding : verdicts.of[0].findings)
      if (finding.kind == NoData) where.push_back(finding.where);
    return where;
  };
  EXPECT_EQ(found(seen), std::vector<MissingSample>());
  EXPECT_EQ(found(unseen), std::vector(1, missing));
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, SamplesWhere,
    testing::Values(Sampled{"Monod", At::Ks, 5.1, 4.9, MissingSample::LowCs},
                    Sampled{"Contois", At::Ks, 0.26, 0.24, MissingSample::LowCsForCells},
                    Sampled{"Moser", At::Ks, 7.0, 6.8, MissingSample::LowCsPower},  // 5^1.2 = 6.9
                    Sampled{"Wu", At::Kis, 74, 76, MissingSample::HighCs},
                    Sampled{"Hoppe", At::Kip, 29, 30.5, MissingSample::HighCp},
                    Sampled{"Aiba", At::Kip, 0.0232, 0.023, MissingSample::HighCpAiba},
                    Sampled{"Levenspiel", At::CpAst, 59, 61, MissingSample::HalfOfCpAst},
                    Sampled{"Lee", At::CxAst, 39, 41, MissingSample::HalfOfCxAst}));

TEST(Verdicts, LeaveNoWideDeviationWithoutARemark) {
  FitProblem problem = test::TwoBatches();
  const std::vector best = {0.3, 8.0, 1.3};
  const auto verdicts = JudgeParameters(problem, best, std::vector{0.29, 8.1, 0.1});
  EXPECT_EQ(KindsOf(verdicts.of[0]), Kinds());
  EXPECT_EQ(KindsOf(verdicts.of[1]), Kinds({WideDeviation}));
}

TEST(Verdicts, SeeThatASearchMissedTheMinimum) {
  const FitProblem problem = test::TwoBatches();
  SearchResult result;
  result.end = SearchEnd::Converged;
  result.best = {0.25, 8, 1.3};
  result.score = Objective(problem).Simulate(result.best).score;
  const FitVerdict missed = JudgeFit(problem, result, {});
  EXPECT_EQ(missed.kind, RunKind::NotAtMinimum);
  EXPECT_LT(*missed.betterScore, 1e-3 * result.score);
  result.end = SearchEnd::Stopped;
  EXPECT_EQ(JudgeFit(problem, result, {}).kind, RunKind::Unfinished);
}

// By hand: 2 of 70 orders of four and four signs make two runs, 6 three; of the 56 of five and
// three these are 2 and 6. Five of one sign: twice 1/32.
TEST(Randomness, CountsOrdersOfSigns) {
  EXPECT_NEAR(RunsProbability(4, 4, 2), 2.0 / 70, 1e-12);
  EXPECT_NEAR(RunsProbability(4, 4, 3), 8.0 / 70, 1e-12);
  EXPECT_NEAR(RunsProbability(5, 3, 3), 8.0 / 56, 1e-12);
  EXPECT_NEAR(RunsProbability(4, 4, 8), 1, 1e-12);
  EXPECT_DOUBLE_EQ(RunsProbability(5, 0, 1), 1.0 / 16);
  EXPECT_EQ(RunsProbability(0, 0, 0), 1);
  EXPECT_NEAR(RunsProbability(16000, 16000, 16001), 0.5, 0.01);  // no overflow
}

// Cx: seven residuals above, then seven below: 2 of 3432 orders. Cs alternates. Cp is exact but for
// its last point, which is not scored.
TEST(Randomness, SeesATrendAndTheWorstPoint) {
  FitProblem problem;
  Experiment& experiment = problem.experiments.emplace_back();
  experiment.number = 12;
  SimulatedFit fit;
  SimulatedExperiment& model = fit.experiments.emplace_back();
  for (int k = 0; k < 15; ++k) {
    experiment.time.push_back(14 - k);
    experiment.Cx.push_back(10);
    model.simulated.Cx.push_back(k < 7 ? 9.9 : 10.1);
    experiment.Cs.push_back(50);
    model.simulated.Cs.push_back(k % 2 == 0 ? 49 : 51);
    experiment.Cp.push_back(5);
    model.simulated.Cp.push_back(k < 14 ? 5 : 1);
  }
  model.simulated.Cs[3] = 60;
  const ResidualPattern pattern = PatternOf(problem, fit);
  ASSERT_EQ(pattern.trends.size(), 1u);
  EXPECT_EQ(pattern.trends[0].variable, "Cx");
  EXPECT_NEAR(pattern.trends[0].probability, 2.0 / 3432, 1e-12);
  EXPECT_EQ(pattern.worst->variable, "Cs");
  EXPECT_EQ(pattern.worst->time, 11);
  // Squares: 14 of 0.01², 13 of 0.02², one of 0.2²; of 42 values.
  EXPECT_NEAR(pattern.worst->multiple, 0.2 / std::sqrt(0.0466 / 42), 1e-9);
  FitVerdict verdict;
  verdict.trends = pattern.trends;
  verdict.worst = pattern.worst;
  EXPECT_EQ(RunVerdictLines(verdict, problem, {}).back(),
            "Worst point: experiment 12, Cs at 11 h: measured 50 g/L, model 60 g/L; 6.0 times the "
            "usual residual.");
}

// Six residuals on one side, 1 of 32 chances, are a trend where they are all there is to see, and
// none beside twelve curves of which each could have shown one.
TEST(Randomness, TakesTheNumberOfTestsIntoAccount) {
  FitProblem problem;
  SimulatedFit fit;
  const auto add = [&](int points, double first, double second) {
    Experiment& experiment = problem.experiments.emplace_back();
    MeasuredSeries& model = fit.experiments.emplace_back().simulated;
    for (int k = 0; k < points; ++k) {
      experiment.time.push_back(k);
      for (auto* const values : {&experiment.Cx, &experiment.Cs, &experiment.Cp})
        values->push_back(10);
      model.Cx.push_back(k % 2 == 0 ? first : second);
      model.Cs.push_back(k % 2 == 0 ? 9 : 11);
      model.Cp.push_back(k % 2 == 0 ? 9 : 11);
    }
  };
  add(7, 9, 9);
  ASSERT_EQ(PatternOf(problem, fit).trends.size(), 1u);
  EXPECT_EQ(PatternOf(problem, fit).trends[0].probability, 1.0 / 32);
  for (int e = 0; e < 4; ++e) add(15, 9, 11);
  EXPECT_TRUE(PatternOf(problem, fit).trends.empty());
}

}  // namespace
}  // namespace velmora
