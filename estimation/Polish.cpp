#include "estimation/Polish.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr int kPatience = 40;              // evaluations for each component
constexpr double kLeastGain = 1e-5;        // relative
constexpr double kSmallestSpread = 1e-12;  // of a component: closer together nothing is gained

Place InBox(const Place& place) {
  return place.cwiseMax(0).cwiseMin(1);
}

void Keep(Found& best, const Place& place, double score) {
  if (score < best.score) best = {place, score};
}

/// The strategy's constants for `size` components and `parents` of a population (Hansen 2016).
struct Weights {
  Weights(Eigen::Index size, int population) : parents(population / 2) {
    const double n = static_cast<double>(size);
    weights = Eigen::VectorXd(parents);
    for (Eigen::Index i = 0; i < parents; ++i)
      weights[i] =
          Logarithm(static_cast<double>(parents) + 0.5) - Logarithm(static_cast<double>(i) + 1);
    weights /= weights.sum();
    mass = 1 / weights.squaredNorm();
    pathC = (4 + mass / n) / (n + 4 + 2 * mass / n);
    pathS = (mass + 2) / (n + mass + 5);
    rankOne = 2 / ((n + 1.3) * (n + 1.3) + mass);
    rankMany = std::min(1 - rankOne, 2 * (mass - 2 + 1 / mass) / ((n + 2) * (n + 2) + mass));
    damping = 1 + 2 * std::max(0.0, std::sqrt((mass - 1) / (n + 1)) - 1) + pathS;
    expectedNorm = std::sqrt(n) * (1 - 1 / (4 * n) + 1 / (21 * n * n));
  }

  Eigen::Index parents;
  Eigen::VectorXd weights;
  double mass, pathC, pathS, rankOne, rankMany, damping, expectedNorm;
};

class CovarianceAdaptation {
 public:
  CovarianceAdaptation(const Found& best, const Eigen::MatrixXd& shape, int population)
      : constants_(best.at.size(), population),
        population_(population),
        mean_(best.at),
        covariance_(shape),
        pathC_(Eigen::VectorXd::Zero(best.at.size())),
        pathS_(pathC_) {}

  /// One population; its lowest score, infinite where it has shrunk to a point.
  double Generation(Found& best, Landscape& landscape, UniformGenerator& random) {
    if (!Decompose()) return std::numeric_limits<double>::infinity();
    Sample(random);
    const std::vector<Place> places(samples_.colwise().begin(), samples_.colwise().end());
    const std::vector<double> scores = landscape.Scores(places);
    for (std::size_t i = 0; i < places.size(); ++i) Keep(best, places[i], scores[i]);
    Update(Ranked(scores));
    return *std::min_element(scores.begin(), scores.end());
  }

 private:
  bool Decompose() {
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(covariance_);
    axes_ = solver.eigenvectors();
    lengths_ = solver.eigenvalues().cwiseMax(0).cwiseSqrt();
    const double longest = sigma_ * lengths_.maxCoeff();
    return std::isfinite(longest) && longest > kSmallestSpread;
  }

  void Sample(UniformGenerator& random) {
    samples_.resize(mean_.size(), population_);
    for (auto sample : samples_.colwise()) {
      Eigen::VectorXd normal(mean_.size());
      for (double& component : normal) component = random.GaussianRandom();
      sample = InBox(mean_ + sigma_ * (axes_ * lengths_.cwiseProduct(normal)));
    }
  }

  static std::vector<Eigen::Index> Ranked(const std::vector<double>& scores) {
    std::vector<Eigen::Index> order(scores.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](Eigen::Index a, Eigen::Index b) {
      return scores[static_cast<std::size_t>(a)] < scores[static_cast<std::size_t>(b)];
    });
    return order;
  }

  void Update(std::vector<Eigen::Index> order) {
    order.resize(static_cast<std::size_t>(constants_.parents));
    const Eigen::MatrixXd steps = (samples_(Eigen::all, order).colwise() - mean_) / sigma_;
    const Eigen::VectorXd step = steps * constants_.weights;
    mean_ += sigma_ * step;
    const Eigen::VectorXd reciprocals =
        lengths_.unaryExpr([](double length) { return length > 0 ? 1 / length : 0; });
    const Eigen::VectorXd white = axes_ * reciprocals.cwiseProduct(axes_.transpose() * step);
    const double remembered = 1 - constants_.pathS;
    pathS_ = remembered * pathS_ +
             std::sqrt(constants_.pathS * (2 - constants_.pathS) * constants_.mass) * white;
    ++generation_;
    const double settled = std::sqrt(1 - Power(remembered, 2 * generation_));
    const double n = static_cast<double>(mean_.size());
    const bool stalls = pathS_.norm() / settled > (1.4 + 2 / (n + 1)) * constants_.expectedNorm;
    pathC_ = (1 - constants_.pathC) * pathC_;
    if (!stalls)
      pathC_ += std::sqrt(constants_.pathC * (2 - constants_.pathC) * constants_.mass) * step;
    const double lost = stalls ? constants_.pathC * (2 - constants_.pathC) : 0;
    covariance_ =
        (1 - constants_.rankOne - constants_.rankMany + constants_.rankOne * lost) * covariance_ +
        constants_.rankOne * pathC_ * pathC_.transpose() +
        constants_.rankMany * steps * constants_.weights.asDiagonal() * steps.transpose();
    sigma_ *= Exponential(constants_.pathS / constants_.damping *
                          (pathS_.norm() / constants_.expectedNorm - 1));
  }

  const Weights constants_;
  const Eigen::Index population_;
  Place mean_;
  Eigen::MatrixXd covariance_;
  Eigen::VectorXd pathC_;  // of the rank-one update
  Eigen::VectorXd pathS_;  // of the step size
  double sigma_ = 1;
  int generation_ = 0;
  Eigen::MatrixXd axes_;
  Eigen::VectorXd lengths_;
  Eigen::MatrixXd samples_;
};

}  // namespace

void AdaptCovariance(Found& best, const Eigen::MatrixXd& shape, int population, int evaluations,
                     Landscape& landscape, UniformGenerator& random) {
  CovarianceAdaptation adaptation(best, shape, population);
  const int patience = kPatience * static_cast<int>(best.at.size());
  double lowest = std::numeric_limits<double>::infinity();
  int spent = 0, gainedAt = 0;
  while (spent + population <= evaluations && spent - gainedAt < patience &&
         !landscape.Exhausted(population)) {
    const double score = adaptation.Generation(best, landscape, random);
    if (!std::isfinite(score)) return;
    spent += population;
    if (score < (1 - kLeastGain) * lowest) gainedAt = spent;
    lowest = std::min(lowest, score);
  }
}

void WalkSimplex(Found& best, const Eigen::MatrixXd& edges, int evaluations, Landscape& landscape) {
  std::vector<Found> corners{best};
  int spent = 0;
  const auto scored = [&](const Place& place) {
    ++spent;
    const Place inside = InBox(place);
    return Found{inside, landscape.Score(inside)};
  };
  for (const auto& edge : edges.colwise()) corners.push_back(scored(best.at + edge));
  const auto higher = [](const Found& a, const Found& b) { return a.score < b.score; };
  while (spent < evaluations && !landscape.Exhausted()) {
    std::stable_sort(corners.begin(), corners.end(), higher);
    Found& worst = corners.back();
    Place centre = Place::Zero(best.at.size());
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) centre += corners[i].at;
    centre /= static_cast<double>(corners.size() - 1);
    if ((worst.at - corners.front().at).cwiseAbs().maxCoeff() < kSmallestSpread) break;

    const Found reflected = scored(2 * centre - worst.at);
    if (reflected.score < corners.front().score) {
      const Found expanded = scored(3 * centre - 2 * worst.at);
      worst = expanded.score < reflected.score ? expanded : reflected;
    } else if (reflected.score < corners[corners.size() - 2].score) {
      worst = reflected;
    } else {
      const bool outside = reflected.score < worst.score;
      const Found contracted =
          scored(outside ? Place(1.5 * centre - 0.5 * worst.at) : Place(0.5 * (centre + worst.at)));
      if (contracted.score < std::min(reflected.score, worst.score)) {
        worst = contracted;
        continue;
      }
      for (std::size_t i = 1; i < corners.size(); ++i)
        corners[i] = scored(0.5 * (corners[i].at + corners.front().at));
    }
  }
  for (const Found& corner : corners) Keep(best, corner.at, corner.score);
}

}  // namespace velmora
