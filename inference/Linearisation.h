// A fit near its optimum, as if its residuals were linear in the parameters.
#pragma once

#include <Eigen/Core>
#include <span>
#include <vector>

#include "estimation/FitProblem.h"

namespace velmora {

struct Linearisation {
  int freedom = 0;                // n - D: scored values less fitted parameters
  double variance = 0;            // s² = SSE / (n - D)
  std::vector<std::size_t> free;  // the parameters that are at none of their bounds
  // Of the free parameters, in that order, on the scale of the search: ln p, or p where the lower
  // bound is not above 0. Without elements where the data do not determine them.
  Eigen::MatrixXd covariance;

  bool Determined() const { return freedom > 0 && covariance.size() > 0; }
  /// Between the free parameters `a` and `b`, by their places in `free`.
  double Correlation(std::size_t a, std::size_t b) const;
};

/// The linearisation at `best`, as long as the problem's variables, with derivatives of the
/// residuals by central differences, which do not see a kink narrower than their step.
Linearisation Linearise(const FitProblem& problem, std::span<const double> best);

}  // namespace velmora
