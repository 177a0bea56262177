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
  /// One of the bounds of a parameter.
  struct Side {
    std::size_t parameter;
    bool upper;
  };

  /// Around `best`, as long as the problem's variables; `free` are those inside their bounds.
  Neighbourhood(const FitProblem& problem, std::span<const double> best,
                std::vector<std::size_t> free);

  /// Between the free parameters `a` and `b`, by their places in `free`, from differences of the
  /// residuals over 0.02 of the range between the bounds on either side; 0 where these do not tell
  /// the parameters apart.
  double Correlation(std::size_t a, std::size_t b) const;

  /// The scores with one parameter held at a bound and the others fitted again, one for each of
  /// `sides`: from where they are, and from where the differences let expect them.
  std::vector<double> HeldAt(std::span<const Side> sides) const;

 private:
  Eigen::MatrixXd Differences() const;
  Place BestAt(const Side& side) const;
  Place Expected(const Side& side) const;

  const FitProblem& problem_;
  const Place at_;  // the best
  const std::vector<std::size_t> free_;
  Eigen::MatrixXd covariance_;  // of the free components, but for s²; or without elements
};

}  // namespace velmora
