#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "inference/ComparisonTexts.h"
#include "inference/FitSummary.h"
#include "language/Numbers.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

/// Batches of Aiba, as `problem` has them, in the lists that a comparison takes.
struct Batches {
  explicit Batches(double noise) : problem(test::Fermentations(*FindModel("Aiba"), 3, noise)) {
    for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
      ConditionsRecord& record = conditions.At(static_cast<int>(e) + 1);
      record.saved = true;
      const auto& values = problem.rows[e].values;
      std::copy(values.begin(), values.end(), record.row.values.begin());
    }
  }

  Comparison Compare(std::initializer_list<const char*> names, unsigned threads,
                     ComparisonObserver& observer) const {
    std::vector<const Model*> models;
    for (const char* const name : names) models.push_back(FindModel(name));
    return CompareModels(problem.experiments, conditions, models, {5471, threads}, observer);
  }

  FitProblem problem;
  CultivationConditions conditions;
};

// By hand, k = 3: 10 ln 0.05 + 6 + 24/6 and 5 ln 0.1 + 6 + 24/1.
TEST(Comparison, WeighsFitAgainstParameters) {
  EXPECT_NEAR(Aicc(0.5, 10, 2), -19.9573227355, 1e-9);
  EXPECT_NEAR(Aicc(0.5, 5, 2), 18.4870745350, 1e-9);
  EXPECT_EQ(Aicc(0.5, 4, 2), kInfinite);
  EXPECT_EQ(Aicc(0.5, 3, 5), kInfinite);
  EXPECT_TRUE(std::isfinite(Aicc(0, 10, 2)));

  // exp(-1) = 0.3678794412; the third is too far off to count, the last cannot be told.
  const std::vector<double> weights = AkaikeWeights(std::vector{-5000.0, -4998.0, 0.0, kInfinite});
  EXPECT_NEAR(weights[0], 1 / 1.3678794412, 1e-10);
  EXPECT_NEAR(weights[1], 0.3678794412 / 1.3678794412, 1e-10);
  EXPECT_EQ(weights[2] + weights[3], 0);
  EXPECT_EQ(AkaikeWeights(std::vector{kInfinite, kInfinite}), std::vector(2, 0.0));
}

// The truth is among the best, whatever shares the work, and a model that cannot bend so is not.
TEST(Comparison, FindsTheModelThatMadeTheData) {
  const Batches batches(0.02);
  ComparisonObserver nobody;
  const auto names = {"Monod", "Contois", "Aiba"};
  const Comparison one = batches.Compare(names, 1, nobody);
  ASSERT_EQ(one.Ranked().size(), 3u);
  EXPECT_EQ(one.models.front().model->name, "Aiba");
  EXPECT_EQ(one.Level().size(), 1u) << one.models[1].criterion - one.models[0].criterion;
  EXPECT_NEAR(one.models.front().variables[0].start, batches.problem.rows[0][At::muMax], 1);

  const Comparison three = batches.Compare(names, 3, nobody);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(one.models[i].model, three.models[i].model);
    EXPECT_EQ(one.models[i].result.best, three.models[i].result.best);
    EXPECT_EQ(one.models[i].criterion, three.models[i].criterion);
  }
}

// R² by its other formula, from the score's own share: the residuals there are over the largest
// value.
TEST(Comparison, ExplainsEachVariable) {
  Batches batches(0.1);
  batches.problem.experiments.resize(1);
  batches.problem.rows.resize(1);
  ComparisonObserver nobody;
  const Comparison comparison = batches.Compare({"Monod"}, 1, nobody);
  FitProblem problem = batches.problem;
  problem.variables = comparison.models[0].variables;
  SetModelSwitches(*FindModel("Monod"), problem.rows[0]);
  const double share =
      Objective(problem).Simulate(comparison.models[0].result.best).experiments[0].share.Cs;
  std::vector<double> Cs = problem.experiments[0].Cs;
  const double scale = *std::max_element(Cs.begin(), Cs.end());
  Cs.pop_back();
  double sum = 0, squares = 0;
  for (const double value : Cs) sum += value, squares += value * value;
  const double spread = squares - sum * sum / static_cast<double>(Cs.size());
  EXPECT_NEAR(comparison.models[0].explained.Cs, 1 - share * scale * scale / spread, 1e-9);

  SearchResult result = comparison.models[0].result;
  std::fill(problem.experiments[0].Cp.begin(), problem.experiments[0].Cp.end(), 0);
  const std::vector<std::string> lines = SummaryLines(problem, result, 200, {});
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], "Ended: all starts were searched to their optimum.");
  EXPECT_NE(lines[2].find(", Cs " + Formatted(comparison.models[0].explained.Cs, kFour, '.')),
            std::string::npos);
  EXPECT_EQ(lines[2].find("Cp"), std::string::npos) << "it does not vary";
  result.starts = 0, result.generations = 7;
  for (const auto& [end, part] : {std::pair(SearchEnd::Stopped, "after generation 7."),
                                  {SearchEnd::GenerationLimit, "after all 7 generations"},
                                  {SearchEnd::Converged, "7"},
                                  {SearchEnd::Fault, "could not be computed"}}) {
    result.end = end;
    EXPECT_NE(EndReason(result, 200, Language::English).find(part), std::string::npos) << part;
  }
}

TEST(Comparison, ListsWhatCannotBeFitted) {
  Batches batches(0.02);
  for (Experiment& experiment : batches.problem.experiments)
    std::fill(experiment.Cp.begin(), experiment.Cp.end(), 0);
  batches.conditions.At(1).row[At::Yxs] = 1e-320;  // a fault from every start
  ComparisonObserver nobody;
  const Comparison comparison = batches.Compare({"Aiba", "Monod"}, 1, nobody);
  EXPECT_TRUE(comparison.Ranked().empty());
  EXPECT_TRUE(comparison.Level().empty());
  const auto why = [&](std::size_t i) {
    return WhyNotRanked(comparison.models[i], batches.problem.experiments, Language::English);
  };
  EXPECT_EQ(why(0), "the measured values say nothing of Kip: what it acts on is 0 throughout");
  EXPECT_TRUE(why(1).starts_with("overflow in the ")) << why(1);
  EXPECT_TRUE(BestModelLines(comparison, {}).empty());
}

/// Stops as soon as one model has ended.
struct Impatient : ComparisonObserver {
  bool StopRequested() override { return done > 0; }
  void Report(std::size_t models, double share) override {
    done = models;
    EXPECT_GE(share, last);
    last = share;
  }
  std::size_t done = 0;
  double last = 0;
};

TEST(Comparison, KeepsWhatIsDoneWhereItIsStopped) {
  const Batches batches(0.02);
  Impatient user;
  const Comparison comparison = batches.Compare({"Monod", "Aiba", "Lee"}, 1, user);
  ASSERT_EQ(comparison.Ranked().size(), 1u);
  EXPECT_EQ(comparison.models[0].model->name, "Monod");
  EXPECT_EQ(comparison.models[0].weight, 1);
  EXPECT_EQ(ComparisonRemarks(comparison, batches.problem.experiments, {}).back(),
            "Without a rank: Lee: stopped before the end of its search.");
  EXPECT_EQ(user.last, 1);

  Comparison doubtful = comparison;
  doubtful.models[0].result.agreeing = 2;
  EXPECT_EQ(ComparisonRemarks(doubtful, batches.problem.experiments, {}).front(),
            "Few starts agree in Monod: another seed (--iu) may change their places.");
}

}  // namespace
}  // namespace velmora
