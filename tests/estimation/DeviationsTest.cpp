#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "estimation/Deviations.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

/// All simulated values of a problem: of each experiment Cx, Cs and Cp.
std::vector<double> ValuesAt(const FitProblem& problem, std::array<double, 2> x) {
  std::vector<double> values;
  for (const SimulatedExperiment& experiment : Objective(problem).Simulate(x).experiments)
    for (const auto* series :
         {&experiment.simulated.Cx, &experiment.simulated.Cs, &experiment.simulated.Cp})
      values.insert(values.end(), series->begin(), series->end());
  return values;
}

TEST(Deviations, ComeFromTheInverseOfTheNormalMatrix) {
  FitProblem problem = test::TwoBatches();
  problem.variables = {problem.variables[0], problem.variables[2]};  // muMax and n
  std::vector<double> measured;
  for (Experiment& data : problem.experiments)
    for (auto* series : {&data.Cx, &data.Cs, &data.Cp})
      for (double& value : *series) {
        value *= measured.size() % 3 == 0 ? 1.03 : 0.98;
        measured.push_back(value);
      }
  for (const std::array best :
       {std::array{0.28, 1.2}, std::array{0.2, 0.0}, std::array{0.2, -0.3}}) {
    const std::array step{0.001 * best[0], best[1] == 0 ? 0.001 : 0.001 * std::fabs(best[1])};
    const std::vector<double> at = ValuesAt(problem, best);
    const std::vector<double> moved0 = ValuesAt(problem, {best[0] + step[0], best[1]});
    const std::vector<double> moved1 = ValuesAt(problem, {best[0], best[1] + step[1]});
    double a = 0, b = 0, d = 0, residual = 0;  // the normal matrix is a b, b d
    for (std::size_t k = 0; k < at.size(); ++k) {
      const double s0 = (moved0[k] - at[k]) / step[0], s1 = (moved1[k] - at[k]) / step[1];
      a += s0 * s0, b += s0 * s1, d += s1 * s1;
      residual += (measured[k] - at[k]) * (measured[k] - at[k]);
    }
    const Deviations deviations = ComputeDeviations(problem, best);
    ASSERT_FALSE(deviations.fault);
    EXPECT_NEAR(deviations.residualSum, residual, 1e-12 * residual);
    ASSERT_EQ(deviations.degreesOfFreedom, 58);  // 2 experiments of 10 points of 3 values, less 2
    const double t58 = (0.012477 * 58 * 58 - 2.538862 * 58 + 2108.683353) / 1000;
    const double determinant = a * d - b * b;
    const double dev0 = std::sqrt(residual * d / determinant / 58) * t58;
    const double dev1 = std::sqrt(residual * a / determinant / 58) * t58;
    EXPECT_NEAR(deviations.values[0], dev0, 1e-9 * dev0);
    EXPECT_NEAR(deviations.values[1], dev1, 1e-9 * dev1);
  }
}

TEST(Deviations, FaultWhereNothingDependsOnAParameterOrNoFreedomIsLeft) {
  FitProblem problem = test::TwoBatches();
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

}  // namespace
}  // namespace velmora
