#include "estimation/Descent.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <vector>

namespace velmora {
namespace {

constexpr double kDifference = 1e-7;     // of a component
constexpr double kScaleFloor = 1e-8;     // of the largest element of the diagonal
constexpr double kLongestStep = 0.5;     // of a component
constexpr int kMostTrials = 25;          // of one iteration
constexpr double kQuietGain = 1e-10;     // of the score
constexpr int kMostQuiet = 3;            // iterations
constexpr double kPromise = 1e-6;        // of the score: a promise that a smooth score would keep
constexpr double kShortestStep = 1e-14;  // of a component
constexpr double kWidest = 0.3;          // of a shape, in components

constexpr double kKinkMove = 1e-5;     // of a component
constexpr double kKinkRise = 2e-5;     // of the score, beyond its curvature
constexpr double kKinkCurvature = 20;  // times what the curvature explains

/// The step for one damping: components that would leave the box stop at its edge, and the others
/// are solved for anew.
class BoundedStep {
 public:
  BoundedStep(const Descent& descent)
      : descent_(descent), step_(Eigen::VectorXd::Zero(descent.at.size())) {
    const Eigen::VectorXd diagonal = descent.normal.diagonal();
    scale_ = diagonal.cwiseMax(kScaleFloor * diagonal.maxCoeff());
    for (Eigen::Index j = 0; j < step_.size(); ++j)
      if (!PointsOut(j)) free_.push_back(j);
  }

  /// Zero where nothing can move.
  Eigen::VectorXd Solve() {
    while (!free_.empty()) {
      SolveFree();
      if (!HoldOneAtTheEdge()) break;
    }
    const double longest = step_.cwiseAbs().maxCoeff();
    if (longest > kLongestStep) step_ *= kLongestStep / longest;
    return step_;
  }

 private:
  bool PointsOut(Eigen::Index j) const {
    const double place = descent_.at[j], slope = descent_.gradient[j];
    return (place <= 0 && slope >= 0) || (place >= 1 && slope <= 0);
  }

  void SolveFree() {
    const Eigen::VectorXd slope = descent_.gradient + descent_.normal * Held();
    Eigen::MatrixXd normal = descent_.normal(free_, free_);
    normal.diagonal() += descent_.damping * scale_(free_);
    const Eigen::VectorXd force = -slope(free_);
    const Eigen::VectorXd solved = normal.ldlt().solve(force);
    step_(free_) = solved;
  }

  /// The step with the free components at 0.
  Eigen::VectorXd Held() const {
    Eigen::VectorXd held = step_;
    for (const Eigen::Index j : free_) held[j] = 0;
    return held;
  }

  /// Holds every free component that leaves the box; whether there was one.
  bool HoldOneAtTheEdge() {
    const std::size_t before = free_.size();
    std::erase_if(free_, [this](Eigen::Index j) {
      const double room = step_[j] < 0 ? -descent_.at[j] : 1 - descent_.at[j];
      if (std::fabs(step_[j]) <= std::fabs(room)) return false;
      step_[j] = room;
      return true;
    });
    return free_.size() < before;
  }

  const Descent& descent_;
  Eigen::VectorXd step_;
  Eigen::VectorXd scale_;
  std::vector<Eigen::Index> free_;
};

double Promised(const Descent& descent, const Eigen::VectorXd& step) {
  return -2 * descent.gradient.dot(step) - step.dot(descent.normal * step);
}

void Accept(Descent& descent, const Place& place, double score, Eigen::VectorXd& residuals,
            double gainRatio) {
  const double gain = (descent.score - score) / descent.score;
  descent.quiet = gain < kQuietGain ? descent.quiet + 1 : 0;
  descent.at = place;
  descent.score = score;
  descent.residuals.swap(residuals);
  descent.damping *= std::max(1.0 / 3, 1 - std::pow(2 * gainRatio - 1, 3));
  descent.growth = 2;
  descent.ended = descent.quiet >= kMostQuiet;
}

void Iterate(Descent& descent, Landscape& landscape) {
  Differentiate(descent, landscape);
  Eigen::VectorXd residuals;
  double firstPromise = 0;
  for (int trial = 0; trial < kMostTrials && !landscape.Exhausted(); ++trial) {
    const Eigen::VectorXd step = BoundedStep(descent).Solve();
    const double promised = Promised(descent, step);
    if (trial == 0) firstPromise = promised;
    if (!(step.cwiseAbs().maxCoeff() > kShortestStep) || !(promised > 0)) break;
    const Place place = (descent.at + step).cwiseMax(0).cwiseMin(1);
    const double score = landscape.Score(place, residuals);
    if (score < descent.score)
      return Accept(descent, place, score, residuals, (descent.score - score) / promised);
    descent.damping *= descent.growth;
    descent.growth *= 2;
  }
  if (landscape.Exhausted()) return;
  descent.ended = true;
  descent.blocked = firstPromise > kPromise * descent.score;
}

}  // namespace

Descent BeginDescent(const Place& place, Landscape& landscape) {
  Descent descent;
  descent.at = place;
  descent.score = landscape.Score(place, descent.residuals);
  descent.ended = !std::isfinite(descent.score);
  return descent;
}

void Differentiate(Descent& descent, Landscape& landscape) {
  const Eigen::Index size = descent.at.size();
  Eigen::MatrixXd places = descent.at.replicate(1, size);
  Eigen::VectorXd steps(size);
  for (Eigen::Index j = 0; j < size; ++j) {
    steps[j] = descent.at[j] + kDifference <= 1 ? kDifference : -kDifference;
    places(j, j) += steps[j];
  }
  Eigen::MatrixXd jacobian;
  const Eigen::VectorXd scores = landscape.Score(places, jacobian);
  for (Eigen::Index j = 0; j < size; ++j) {
    if (std::isfinite(scores[j]))
      jacobian.col(j) = (jacobian.col(j) - descent.residuals) / (places(j, j) - descent.at[j]);
    else
      jacobian.col(j).setZero();
  }
  descent.normal = jacobian.transpose() * jacobian;
  descent.gradient = jacobian.transpose() * descent.residuals;
}

void Descend(Descent& descent, int iterations, Landscape& landscape) {
  for (int i = 0; i < iterations && !descent.ended && !landscape.Exhausted(); ++i) {
    descent.ended = landscape.IsPerfect(descent.score);
    if (!descent.ended) Iterate(descent, landscape);
  }
}

Eigen::MatrixXd ShapeAround(const Descent& descent, double spread) {
  const Eigen::Index size = descent.at.size();
  const Eigen::MatrixXd widest = Eigen::MatrixXd::Identity(size, size) / (kWidest * kWidest);
  return (descent.normal / (spread * descent.score) + widest).inverse();
}

bool HasKink(const Descent& descent, Landscape& landscape) {
  for (Eigen::Index j = 0; j < descent.at.size(); ++j)
    for (const double move : {-kKinkMove, kKinkMove}) {
      Place place = descent.at;
      place[j] = std::clamp(place[j] + move, 0.0, 1.0);
      const double explained =
          kKinkRise * descent.score + kKinkCurvature * descent.normal(j, j) * move * move;
      if (place[j] != descent.at[j] && landscape.Score(place) > descent.score + explained)
        return true;
    }
  return false;
}

}  // namespace velmora
