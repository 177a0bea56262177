#include "inference/Neighbourhood.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Descent.h"

namespace velmora {
namespace {

constexpr double kFarOff = 0.02;  // of a component
constexpr int kIterations = 40;   // of a descent

Landscape LandscapeOf(const FitProblem& problem) {
  return {problem, std::numeric_limits<std::int32_t>::max(), [] { return false; }};
}

}  // namespace

double FittedFrom(const FitProblem& problem, const std::vector<double>& start) {
  Landscape landscape = LandscapeOf(problem);
  Descent descent = BeginDescent(landscape.PlaceOf(start), landscape);
  if (!start.empty()) Descend(descent, kIterations, landscape);
  return descent.score;
}

Neighbourhood::Neighbourhood(const FitProblem& problem, std::span<const double> best,
                             std::vector<std::size_t> free)
    : problem_(problem), best_(best.begin(), best.end()), free_(std::move(free)) {
  const Eigen::MatrixXd jacobian = Differences();
  const Eigen::FullPivLU<Eigen::MatrixXd> normal(jacobian.transpose() * jacobian);
  if (jacobian.cols() > 0 && jacobian.allFinite() && normal.isInvertible())
    covariance_ = normal.inverse();
}

/// One column for each free parameter.
Eigen::MatrixXd Neighbourhood::Differences() const {
  Landscape landscape = LandscapeOf(problem_);
  const Place at = landscape.PlaceOf(best_);
  Eigen::MatrixXd jacobian(landscape.Scored(), static_cast<Eigen::Index>(free_.size()));
  Eigen::VectorXd below, above;
  for (std::size_t column = 0; column < free_.size(); ++column) {
    const auto j = static_cast<Eigen::Index>(free_[column]);
    Place low = at, high = at;
    low[j] = std::max(0.0, at[j] - kFarOff);
    high[j] = std::min(1.0, at[j] + kFarOff);
    const bool scored =
        std::isfinite(landscape.Score(low, below)) && std::isfinite(landscape.Score(high, above));
    auto derivatives = jacobian.col(static_cast<Eigen::Index>(column));
    derivatives.setZero();
    if (scored) derivatives = (above - below) / (high[j] - low[j]);
  }
  return jacobian;
}

double Neighbourhood::Correlation(std::size_t a, std::size_t b) const {
  const auto i = static_cast<Eigen::Index>(a), j = static_cast<Eigen::Index>(b);
  if (covariance_.size() == 0) return 0;
  return covariance_(i, j) / std::sqrt(covariance_(i, i) * covariance_(j, j));
}

/// The candidate on the line along which the others follow parameter `j`, if it is free.
std::vector<double> Neighbourhood::Expected(double value, std::size_t j) const {
  const auto found = std::find(free_.begin(), free_.end(), j);
  if (covariance_.size() == 0 || found == free_.end()) return best_;
  const Landscape landscape = LandscapeOf(problem_);
  const Place at = landscape.PlaceOf(best_);
  const auto held = static_cast<Eigen::Index>(j);
  const Eigen::Index column = found - free_.begin();
  const double moved = landscape.ComponentOf(held, value) - at[held];
  Place place = at;
  for (std::size_t i = 0; i < free_.size(); ++i) {
    const double slope =
        covariance_(static_cast<Eigen::Index>(i), column) / covariance_(column, column);
    const auto other = static_cast<Eigen::Index>(free_[i]);
    place[other] = std::clamp(at[other] + slope * moved, 0.0, 1.0);
  }
  return landscape.CandidateAt(place);
}

double Neighbourhood::HeldAt(double value, std::size_t j) const {
  FitProblem others = problem_;
  const auto at = static_cast<std::ptrdiff_t>(j);
  for (KineticParameters& row : others.rows) row[others.variables[j].position] = value;
  others.variables.erase(others.variables.begin() + at);
  double least = std::numeric_limits<double>::infinity();
  for (std::vector<double> start : {best_, Expected(value, j)}) {
    start.erase(start.begin() + at);
    least = std::min(least, FittedFrom(others, start));
  }
  return least;
}

}  // namespace velmora
