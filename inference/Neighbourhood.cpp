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
    : problem_(problem),
      at_(LandscapeOf(problem).PlaceOf({best.begin(), best.end()})),
      free_(std::move(free)) {
  const Eigen::MatrixXd jacobian = Differences();
  const Eigen::FullPivLU<Eigen::MatrixXd> normal(jacobian.transpose() * jacobian);
  if (jacobian.cols() > 0 && jacobian.allFinite() && normal.isInvertible())
    covariance_ = normal.inverse();
}

/// One column for each free parameter.
Eigen::MatrixXd Neighbourhood::Differences() const {
  const auto columns = static_cast<Eigen::Index>(free_.size());
  Eigen::MatrixXd places = at_.replicate(1, 2 * columns);
  for (Eigen::Index column = 0; column < columns; ++column) {
    const auto j = static_cast<Eigen::Index>(free_[static_cast<std::size_t>(column)]);
    places(j, 2 * column) = std::max(0.0, at_[j] - kFarOff);
    places(j, 2 * column + 1) = std::min(1.0, at_[j] + kFarOff);
  }
  Landscape landscape = LandscapeOf(problem_);
  Eigen::MatrixXd residuals;
  const Eigen::VectorXd scores = landscape.Score(places, residuals);
  Eigen::MatrixXd jacobian = Eigen::MatrixXd::Zero(residuals.rows(), columns);
  for (Eigen::Index column = 0; column < columns; ++column) {
    const Eigen::Index below = 2 * column, above = below + 1;
    if (!std::isfinite(scores[below]) || !std::isfinite(scores[above])) continue;
    jacobian.col(column) = (residuals.col(above) - residuals.col(below)) /
                           (places.col(above) - places.col(below)).sum();
  }
  return jacobian;
}

double Neighbourhood::Correlation(std::size_t a, std::size_t b) const {
  const auto i = static_cast<Eigen::Index>(a), j = static_cast<Eigen::Index>(b);
  if (covariance_.size() == 0) return 0;
  return covariance_(i, j) / std::sqrt(covariance_(i, i) * covariance_(j, j));
}

/// The best place with the parameter at the bound.
Place Neighbourhood::BestAt(const Side& side) const {
  Place place = at_;
  place[static_cast<Eigen::Index>(side.parameter)] = side.upper ? 1 : 0;
  return place;
}

/// As above, on the line along which the others follow the parameter, if it is free.
Place Neighbourhood::Expected(const Side& side) const {
  const auto found = std::find(free_.begin(), free_.end(), side.parameter);
  Place place = BestAt(side);
  if (covariance_.size() == 0 || found == free_.end()) return place;
  const auto held = static_cast<Eigen::Index>(side.parameter);
  const Eigen::Index column = found - free_.begin();
  const double moved = place[held] - at_[held];
  for (std::size_t i = 0; i < free_.size(); ++i) {
    const auto other = static_cast<Eigen::Index>(free_[i]);
    const double slope =
        covariance_(static_cast<Eigen::Index>(i), column) / covariance_(column, column);
    if (other != held) place[other] = std::clamp(at_[other] + slope * moved, 0.0, 1.0);
  }
  return place;
}

std::vector<double> Neighbourhood::HeldAt(std::span<const Side> sides) const {
  std::vector<Place> places;
  for (const Side& side : sides) {
    places.push_back(BestAt(side));
    places.push_back(Expected(side));
  }
  Landscape landscape = LandscapeOf(problem_);
  std::vector<Descent> descents = BeginDescents(places, landscape);
  for (std::size_t i = 0; i < descents.size(); ++i)
    descents[i].held = static_cast<Eigen::Index>(sides[i / 2].parameter);
  Descend(descents, kIterations, landscape);
  std::vector<double> scores;
  for (std::size_t i = 0; i < descents.size(); i += 2)
    scores.push_back(std::min(descents[i].score, descents[i + 1].score));
  return scores;
}

}  // namespace velmora
