// The confidence deviations of the estimated parameters.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "estimation/Objective.h"

namespace velmora {

/// The two-sided 95 % quantile of Student's distribution for `freedom` degrees of freedom, by one
/// of two quadratics that meet the tabled values between about 1 and 100 degrees. They are used
/// outside that range too.
double StudentT(double freedom);

/// A square matrix, row by row.
class SquareMatrix {
 public:
  explicit SquareMatrix(int size);
  int Size() const { return size_; }
  double& operator()(int row, int column) { return values_[Index(row, column)]; }
  double operator()(int row, int column) const { return values_[Index(row, column)]; }

 private:
  std::size_t Index(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(size_) +
           static_cast<std::size_t>(column);
  }
  int size_;
  std::vector<double> values_;
};

/// The inverse by Gauss-Jordan elimination, with row exchanges after a search for the largest
/// element of the column. Throws an `ArithmeticFault` where a pivot is 0 or a value overflows.
SquareMatrix Inverse(SquareMatrix matrix);

/// The deviations of a fit, or why there are none.
struct Deviations {
  std::vector<double> values;            // one for each fitted parameter; empty after a fault
  std::optional<ArithmeticFault> fault;  // of the inversion, or of a simulation beside the result
  int observations = 0;                  // n: measured values of the three variables at all points
  int degreesOfFreedom = 0;              // n - D
  double residualSum = 0;                // of squares, over all points in measured units
};

/// Linearised deviations at `best` (Bard 1974): dev(j) = sqrt(RSS inv(S'S)(j,j) / (n - D)) t, with
/// the sensitivities S by forward differences of |p| x 0.001 (0.001 where p is 0). `best` is as
/// long as the problem's variables.
Deviations ComputeDeviations(const FitProblem& problem, std::span<const double> best);

}  // namespace velmora
