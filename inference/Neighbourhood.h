// The score around an optimum, seen from far enough off to look past the teeth that kinks give it.
#pragma once

#include <Eigen/Core>
#include <span>
#include <vector>

#include "estimation/Landscape.h"

namespace velmora {

/// The score after the parameters of `problem` are fitted from `start` by one descent.
double FittedFrom(const FitProblem& problem, const std::vector<double>& start);

class Neighbourhood {
 public:
  /// Around `best`, as long as the problem's variables; `free` are those inside their bounds.
  Neighbourhood(const FitProblem& problem, std::span<const double> best,
                std::vector<std::size_t> free);

  /// Between the free parameters `a` and `b`, by their places in `free`, from differences of the
  /// residuals over 0.02 of the range between the bounds on either side; 0 where these do not tell
  /// the parameters apart.
  double Correlation(std::size_t a, std::size_t b) const;

  /// The score with parameter `j` held at `value` and the others fitted again: from where they are,
  /// and from where the differences let expect them.
  double HeldAt(double value, std::size_t j) const;

 private:
  Eigen::MatrixXd Differences() const;
  std::vector<double> Expected(double value, std::size_t j) const;

  const FitProblem& problem_;
  const std::vector<double> best_;
  const std::vector<std::size_t> free_;
  Eigen::MatrixXd covariance_;  // of the free components, but for s²; or without elements
};

}  // namespace velmora
