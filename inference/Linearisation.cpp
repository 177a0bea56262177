#include "inference/Linearisation.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Landscape.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kStep = 1e-4;         // of the difference, in components
constexpr double kAtBound = 1e-6;      // of a component
constexpr double kLeastPivot = 1e-12;  // of the scaled J'J, whose diagonal is 1

/// What one component comes to on the scale of the search.
double Width(const FitVariable& variable) {
  return variable.lower > 0 ? Logarithm(variable.upper / variable.lower)
                            : variable.upper - variable.lower;
}

std::vector<std::size_t> InsideBounds(const Place& place) {
  std::vector<std::size_t> free;
  for (Eigen::Index j = 0; j < place.size(); ++j)
    if (place[j] > kAtBound && place[j] < 1 - kAtBound) free.push_back(static_cast<std::size_t>(j));
  return free;
}

/// One column for each of `free`, per unit of the scale of the search.
Eigen::MatrixXd Jacobian(Landscape& landscape, const Place& at,
                         const std::vector<std::size_t>& free) {
  Eigen::MatrixXd jacobian(landscape.Scored(), static_cast<Eigen::Index>(free.size()));
  Eigen::VectorXd below, above;
  for (std::size_t column = 0; column < free.size(); ++column) {
    const auto j = static_cast<Eigen::Index>(free[column]);
    Place low = at, high = at;
    low[j] = std::max(0.0, at[j] - kStep);
    high[j] = std::min(1.0, at[j] + kStep);
    const bool scored =
        std::isfinite(landscape.Score(low, below)) && std::isfinite(landscape.Score(high, above));
    const double width = (high[j] - low[j]) * Width(landscape.Variable(j));
    auto derivatives = jacobian.col(static_cast<Eigen::Index>(column));
    derivatives = scored ? Eigen::VectorXd((above - below) / width)
                         : Eigen::VectorXd::Zero(landscape.Scored());
  }
  return jacobian;
}

/// The inverse; without elements where a parameter moves no residual, or only as others do.
Eigen::MatrixXd Inverse(const Eigen::MatrixXd& normal) {
  if (normal.size() == 0 || !normal.allFinite() || normal.diagonal().minCoeff() <= 0) return {};
  const Eigen::VectorXd scale = normal.diagonal().cwiseSqrt().cwiseInverse();
  const Eigen::LDLT<Eigen::MatrixXd> scaled(scale.asDiagonal() * normal * scale.asDiagonal());
  if (scaled.info() != Eigen::Success || scaled.vectorD().minCoeff() < kLeastPivot) return {};
  const Eigen::MatrixXd identity = Eigen::MatrixXd::Identity(normal.rows(), normal.cols());
  return scale.asDiagonal() * scaled.solve(identity) * scale.asDiagonal();
}

}  // namespace

double Linearisation::Correlation(std::size_t a, std::size_t b) const {
  const auto i = static_cast<Eigen::Index>(a), j = static_cast<Eigen::Index>(b);
  return covariance(i, j) / std::sqrt(covariance(i, i) * covariance(j, j));
}

Linearisation Linearise(const FitProblem& problem, std::span<const double> best) {
  Landscape landscape(problem, std::numeric_limits<std::int32_t>::max(), [] { return false; });
  const Place at = landscape.PlaceOf({best.begin(), best.end()});
  Linearisation linear;
  linear.freedom = static_cast<int>(landscape.Scored() - landscape.Size());
  linear.free = InsideBounds(at);
  if (linear.freedom <= 0) return linear;
  linear.variance = landscape.Score(at) / linear.freedom;
  const Eigen::MatrixXd jacobian = Jacobian(landscape, at, linear.free);
  linear.covariance = linear.variance * Inverse(jacobian.transpose() * jacobian);
  return linear;
}

}  // namespace velmora
