#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "estimation/Deviations.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/ResultTexts.h"
#include "language/Numbers.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

/// Two batches simulated with Andrews-Levenspiel constants, read off every tenth model point.
FitProblem SyntheticProblem() {
  FitProblem problem = test::SampledBatches("Andrews-Levenspiel", {40, 80});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::Ks, 1, 30, 10}, {At::n, 0.3, 3, 1}};
  return problem;
}

/// The stopping rule held open: no change of the best score is below a negative accuracy.
EstimationSettings Unstopped() {
  EstimationSettings settings;
  settings.EPS = -1;
  return settings;
}

class Recorder : public SearchObserver {
 public:
  explicit Recorder(int generations = 1 << 30) : most_(generations) {}
  bool StopRequested() override { return static_cast<int>(scores.size()) >= most_; }
  void Report(const Generation& generation) override {
    scores.push_back(generation.score);
    calls = generation.functionCalls;
  }
  std::vector<double> scores;
  std::int32_t calls = 0;

 private:
  int most_;
};

TEST(Search, RecoversTheConstantsThatMadeTheData) {
  const FitProblem problem = SyntheticProblem();
  Recorder recorder;
  const SearchResult result = Search(problem, Unstopped(), recorder);
  ASSERT_EQ(result.end, SearchEnd::GenerationLimit);
  EXPECT_EQ(result.generations, 200);
  EXPECT_NEAR(result.best[0], 0.3, 1e-6);
  EXPECT_NEAR(result.best[1], 8, 1e-4);
  EXPECT_NEAR(result.best[2], 1.3, 1e-5);
  EXPECT_TRUE(std::is_sorted(recorder.scores.rbegin(), recorder.scores.rend()));
  // 100 members, 200 generations of 100 trials, and half the members drawn anew in each of the
  // generations 50, 100, 150 and 200 in which the draw falls below 0.9.
  EXPECT_EQ((result.functionCalls - 20100) % 50, 0);
  EXPECT_GT(result.functionCalls, 20100);
  EXPECT_LE(result.functionCalls, 20300);
}

TEST(Search, KeepsItsSignatureAndEndsWhereAGenerationGainsLessThanTheAccuracy) {
  const FitProblem problem = SyntheticProblem();
  EstimationSettings settings;
  settings.IU = 5748;
  Recorder recorder;
  const SearchResult result = Search(problem, settings, recorder);
  ASSERT_EQ(result.end, SearchEnd::Converged);
  const std::size_t last = recorder.scores.size() - 1;
  ASSERT_GE(last, 1U);
  for (std::size_t g = 1; g <= last; ++g)
    EXPECT_EQ(recorder.scores[g - 1] - recorder.scores[g] < settings.EPS, g == last);
  EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);
  // The signature of this run. It changes only with the numerical method, and then on purpose.
  EXPECT_EQ(ShortestText(result.score), "0.0011387672630201618");
  EXPECT_EQ(result.functionCalls, 800);
}

TEST(Search, StopsBetweenGenerationsAndKeepsItsBest) {
  const FitProblem problem = SyntheticProblem();
  for (const int generations : {0, 3}) {
    Recorder recorder(generations);
    const SearchResult result = Search(problem, Unstopped(), recorder);
    EXPECT_EQ(result.end, SearchEnd::Stopped);
    EXPECT_EQ(result.generations, generations);
    EXPECT_EQ(result.functionCalls, 100 * (generations + 1));
    EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);
  }
}

TEST(Search, RefusesBoundsThatAreNotInOrder) {
  FitProblem problem = SyntheticProblem();
  problem.variables[1].lower = problem.variables[1].upper;
  Recorder recorder;
  const SearchResult result = Search(problem, {}, recorder);
  EXPECT_EQ(result.end, SearchEnd::Refused);
  EXPECT_FALSE(result.HasResult());
}

TEST(Search, EndsWithTheFaultOfASimulation) {
  FitProblem problem = SyntheticProblem();
  problem.rows[1][At::Yxs] = 0;
  Recorder recorder;
  const SearchResult result = Search(problem, {}, recorder);
  EXPECT_EQ(result.end, SearchEnd::Fault);
  ASSERT_TRUE(result.fault);
  EXPECT_EQ(*result.fault,
            (ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::SubstrateBalance, 2, 2, 1}));
}

TEST(Settings, AreRefusedJustOutsideTheirBounds) {
  const TypedSettings least{10, 200, 0.5, 0.5, 0, 0.0000001, 1000};
  const TypedSettings most{1e9, 1e9, 0.9, 0.9, 0.01, 0.0001, 9999};
  EXPECT_FALSE(CheckSettings(least).refused);
  EXPECT_FALSE(CheckSettings(most).refused);
  std::vector<TypedSettings> outside(13, least);
  outside[0].NPOP = 9.99, outside[1].ITER = 199, outside[2].PCROS = 0.499, outside[3].PCROS = 0.901;
  outside[4].FACT = 0.499, outside[5].FACT = 0.901, outside[6].FACT1 = -0.001,
  outside[7].FACT1 = 0.011;
  outside[8].EPS = 0.00000009, outside[9].EPS = 0.00011, outside[10].IU = 999,
  outside[11].IU = 10000;
  outside[12].EPS = std::nullopt;
  const std::size_t which[] = {0, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 5};
  for (std::size_t i = 0; i < outside.size(); ++i)
    EXPECT_EQ(CheckSettings(outside[i]).refused, which[i]);
}

TEST(Deviations, MatchALineariseableCaseByHand) {
  // With Ks = 0 cells grow as exp(mu t) whatever Cs, and Cs and Cp do not depend on mu to first
  // order when their yields make them almost constant.
  FitProblem problem;
  KineticParameters row = test::BatchOf("Monod");
  for (const At position : {At::Ks, At::ms, At::Kd, At::Kdp, At::alpha, At::beta})
    row[position] = 0;
  row[At::Cx0] = 0.1, row[At::T] = 10, row[At::Yxs] = 1e9;
  Experiment data;
  double residual = 0, sensitivity = 0;
  for (int k = 1; k <= 4; ++k) {
    const double t = 2 * k, Cx = 0.1 * std::exp(0.3 * t), miss = k % 2 == 0 ? 0.01 : -0.01;
    data.time.push_back(t);
    data.Cx.push_back(Cx + miss);
    data.Cs.push_back(75);
    data.Cp.push_back(0.1);
    residual += miss * miss;
    sensitivity += t * Cx * t * Cx;
  }
  problem.experiments = {data};
  problem.rows = {row};
  problem.variables = {{At::muMax, 0.1, 1, 0.3}};
  const Deviations deviations = ComputeDeviations(problem, std::array{0.3});
  ASSERT_FALSE(deviations.fault);
  EXPECT_EQ(deviations.observations, 12);
  EXPECT_EQ(deviations.degreesOfFreedom, 11);
  const double t11 = (0.637521 * 121 - 34.317702 * 11 + 2511.753303) / 1000;
  const double expected = std::sqrt(residual / sensitivity / 11) * t11;
  EXPECT_NEAR(deviations.values[0], expected, 0.003 * expected);  // forward differences of 0.1 %
}

TEST(Deviations, FaultWhereNothingDependsOnAParameterOrNoFreedomIsLeft) {
  FitProblem problem = SyntheticProblem();
  problem.variables.push_back({At::CxAst, 1, 100, 50});  // not in Andrews-Levenspiel
  EXPECT_TRUE(ComputeDeviations(problem, std::array{0.3, 8.0, 1.3, 50.0}).fault);

  problem.variables.pop_back();
  problem.experiments.resize(1);
  problem.rows.resize(1);
  Experiment& data = problem.experiments[0];
  for (auto* series : {&data.time, &data.Cx, &data.Cs, &data.Cp}) *series = {series->at(4)};
  const Deviations none = ComputeDeviations(problem, std::array{0.3, 8.0, 1.3});
  ASSERT_TRUE(none.fault);
  EXPECT_EQ(none.degreesOfFreedom, 0);
}

TEST(Deviations, UseTheTwoQuadraticsOfStudentsT) {
  EXPECT_NEAR(StudentT(10), 2.232, 0.0005);
  EXPECT_NEAR(StudentT(28), 2.047, 0.0005);
  EXPECT_NEAR(StudentT(27), 2.0499, 0.0001);  // (464.7528 - 926.5780 + 2511.7533)/1000
}

TEST(Inverse, ExchangesRowsAndRefusesSingularMatrices) {
  SquareMatrix matrix(3);
  const std::array<double, 9> values{0, 2, 1, 1, 0, 0, 3, 0, 1};
  for (int i = 0; i < 9; ++i) matrix(i / 3, i % 3) = values[static_cast<std::size_t>(i)];
  const SquareMatrix inverse = Inverse(matrix);
  const std::array<double, 9> expected{0, 1, 0, 0.5, 1.5, -0.5, 0, -3, 1};
  for (int i = 0; i < 9; ++i)
    EXPECT_NEAR(inverse(i / 3, i % 3), expected[static_cast<std::size_t>(i)], 1e-15);
  SquareMatrix singular(2);
  singular(0, 0) = 1, singular(0, 1) = 2, singular(1, 0) = 2, singular(1, 1) = 4;
  EXPECT_THROW(Inverse(singular), ArithmeticFault);
}

TEST(ResultTexts, StandToTheCharacter) {
  const FitProblem problem = SyntheticProblem();
  const std::vector<double> best{0.179, 11.37, 1.5};
  EXPECT_EQ(ProgressText(problem.variables, {1, best, 0.125, 200, 60}, {Language::Portuguese, ','}),
            "**********Parâmetros estimados**********\n"
            "µmáx = 0,179\nKs = 11,37\nn = 1,50\n"
            "Soma do quadrado dos erros = 0,125\n"
            "Erro quadrático = 0,0020833333333333333\n"
            "Total de funções chamadas = 200\n"
            "-----------------------------------------------------\n");
  SearchResult result;
  result.end = SearchEnd::GenerationLimit, result.best = best, result.score = 0.125;
  Deviations deviations;
  deviations.values = {0.01, 2, 0.00000000000004}, deviations.observations = 50;
  EXPECT_EQ(FinalText(problem, result, deviations, {}),
            "**********Estimated parameters with deviation**********\n"
            "µmáx = 0.179 +/- 0.01\nKs = 11.37 +/- 2.00\nn = 1.50 +/- 0.00\n"
            "Sum of squared errors = 0.125\nSquare error = 0.0025\n"
            "Did not converge. Reducing the parameter EPS or increasing ITER or both,\n"
            "increase parameters population size, crossover probability or scale parameter.\n");
}

}  // namespace
}  // namespace velmora
