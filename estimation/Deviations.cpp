#include "estimation/Deviations.h"

#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr double kRelativeStep = 0.001;  // also the step where a parameter is 0

[[noreturn]] void Fail(FaultKind kind) {
  throw ArithmeticFault{kind, FaultTerm::Deviations};
}

double Finite(double value) {
  if (!std::isfinite(value)) Fail(FaultKind::Overflow);
  return value;
}

/// The simulated values of all experiments in one column: for each experiment Cx, Cs, Cp.
std::vector<double> SimulatedColumn(const SimulatedFit& fit) {
  std::vector<double> column;
  for (const auto& [curve, simulated, share] : fit.experiments)
    for (const auto* series : {&simulated.Cx, &simulated.Cs, &simulated.Cp})
      column.insert(column.end(), series->begin(), series->end());
  return column;
}

double Square(double value) {
  return value * value;
}

double ResidualSum(const FitProblem& problem, const SimulatedFit& fit) {
  double sum = 0;
  for (std::size_t e = 0; e < fit.experiments.size(); ++e) {
    const Experiment& measured = problem.experiments[e];
    const MeasuredSeries& simulated = fit.experiments[e].simulated;
    for (std::size_t k = 0; k < measured.time.size(); ++k)
      sum += Square(measured.Cx[k] - simulated.Cx[k]) + Square(measured.Cs[k] - simulated.Cs[k]) +
             Square(measured.Cp[k] - simulated.Cp[k]);
  }
  return Finite(sum);
}

/// Column j: the change of every simulated value with parameter j.
std::vector<std::vector<double>> Sensitivities(const Objective& objective,
                                               const std::vector<double>& at,
                                               std::span<const double> best) {
  std::vector<std::vector<double>> columns;
  std::vector<double> moved(best.begin(), best.end());
  for (std::size_t j = 0; j < best.size(); ++j) {
    const double step = best[j] == 0 ? kRelativeStep : std::fabs(best[j]) * kRelativeStep;
    moved[j] = best[j] + step;
    std::vector<double> column = SimulatedColumn(objective.Simulate(moved));
    moved[j] = best[j];
    for (std::size_t k = 0; k < column.size(); ++k) column[k] = Finite((column[k] - at[k]) / step);
    columns.push_back(std::move(column));
  }
  return columns;
}

SquareMatrix NormalMatrix(const std::vector<std::vector<double>>& columns) {
  const int size = static_cast<int>(columns.size());
  SquareMatrix matrix(size);
  for (int row = 0; row < size; ++row)
    for (int column = 0; column < size; ++column) {
      const auto& a = columns[static_cast<std::size_t>(row)];
      const auto& b = columns[static_cast<std::size_t>(column)];
      for (std::size_t k = 0; k < a.size(); ++k) matrix(row, column) += a[k] * b[k];
    }
  return matrix;
}

void ExchangeRows(SquareMatrix& matrix, int a, int b) {
  for (int column = 0; a != b && column < matrix.Size(); ++column)
    std::swap(matrix(a, column), matrix(b, column));
}

void DivideRow(SquareMatrix& matrix, int row, double divisor) {
  for (int column = 0; column < matrix.Size(); ++column)
    matrix(row, column) = Finite(matrix(row, column) / divisor);
}

void SubtractRow(SquareMatrix& matrix, int row, int pivot, double factor) {
  for (int column = 0; column < matrix.Size(); ++column)
    matrix(row, column) = Finite(matrix(row, column) - factor * matrix(pivot, column));
}

int PivotRow(const SquareMatrix& matrix, int column) {
  int pivot = column;
  for (int row = column + 1; row < matrix.Size(); ++row)
    if (std::fabs(matrix(row, column)) > std::fabs(matrix(pivot, column))) pivot = row;
  return pivot;
}

double Deviation(double residualSum, double variance, int freedom) {
  if (freedom == 0) Fail(FaultKind::DivisionByZero);
  const double square = residualSum * variance / freedom;
  if (square < 0) Fail(FaultKind::InvalidPower);
  return Finite(std::sqrt(square) * StudentT(freedom));
}

}  // namespace

SquareMatrix::SquareMatrix(int size)
    : size_(size), values_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size)) {}

double StudentT(double freedom) {
  const double thousandths = freedom >= 28
                                 ? 0.012477 * freedom * freedom - 2.538862 * freedom + 2108.683353
                                 : 0.637521 * freedom * freedom - 34.317702 * freedom + 2511.753303;
  return thousandths / 1000;
}

SquareMatrix Inverse(SquareMatrix matrix) {
  const int size = matrix.Size();
  SquareMatrix inverse(size);
  for (int i = 0; i < size; ++i) inverse(i, i) = 1;
  for (int column = 0; column < size; ++column) {
    const int pivot = PivotRow(matrix, column);
    ExchangeRows(matrix, column, pivot);
    ExchangeRows(inverse, column, pivot);
    const double divisor = Finite(matrix(column, column));
    if (divisor == 0) Fail(FaultKind::DivisionByZero);
    DivideRow(matrix, column, divisor);
    DivideRow(inverse, column, divisor);
    for (int row = 0; row < size; ++row) {
      if (row == column) continue;
      const double factor = matrix(row, column);
      SubtractRow(matrix, row, column, factor);
      SubtractRow(inverse, row, column, factor);
    }
  }
  return inverse;
}

Deviations ComputeDeviations(const FitProblem& problem, std::span<const double> best) {
  const Objective objective(problem);
  Deviations deviations;
  const int count = static_cast<int>(best.size());
  deviations.observations = objective.Observations();
  deviations.degreesOfFreedom = deviations.observations - count;
  try {
    const SimulatedFit fit = objective.Simulate(best);
    const SquareMatrix normal = NormalMatrix(Sensitivities(objective, SimulatedColumn(fit), best));
    deviations.residualSum = ResidualSum(problem, fit);
    const SquareMatrix inverse = Inverse(normal);
    for (int j = 0; j < count; ++j)
      deviations.values.push_back(
          Deviation(deviations.residualSum, inverse(j, j), deviations.degreesOfFreedom));
  } catch (const ArithmeticFault& fault) {
    deviations.values.clear();
    deviations.fault = fault;
  }
  return deviations;
}

}  // namespace velmora
