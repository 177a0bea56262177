#include "estimation/Hops.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kAlong = 0.6;  // probabilities
constexpr double kAcross = 0.3;
constexpr double kLeastSpread = -1.5;  // powers of ten: how far along the valley,
constexpr double kMostSpread = 0.5;    // as the gain of score that it may cost
constexpr double kTwoComponents = 0.5;
constexpr double kAnywhere = 0.75;  // and as often at either bound as the rest allows
constexpr double kNearData = 0.5;   // of a limit
constexpr double kWithLowExponent = 0.5;
constexpr double kLowExponent = 0.3;  // highest component
constexpr double kFollow = 0.3;       // of a component: how far the others follow those set anew
constexpr double kRidge = 1e-8;       // of the largest element of the diagonal
constexpr int kSome = 20;

struct Factors {
  double least, most;  // times the highest measured value
};
constexpr Factors kTellingLimit{0.95, 2};
constexpr Factors kFeltLimit{0.95, 1.3};

bool IsLimit(At position) {
  return position == At::CxAst || position == At::CpAst;
}

double HighestOf(const FitProblem& problem, std::vector<double> Experiment::*series) {
  double highest = 0;
  for (const Experiment& experiment : problem.experiments)
    highest = std::max(highest, Objective::NormalisationScale(experiment.*series));
  return highest;
}

}  // namespace

Hops::Hops(const FitProblem& problem, Landscape& landscape, UniformGenerator& random)
    : landscape_(landscape),
      random_(random),
      highestCx_(HighestOf(problem, &Experiment::Cx)),
      highestCp_(HighestOf(problem, &Experiment::Cp)) {}

std::vector<Place> Hops::Hypercube(int count) {
  std::vector<Place> places(static_cast<std::size_t>(count), Place(landscape_.Size()));
  std::vector<int> layers(places.size());
  for (Eigen::Index j = 0; j < landscape_.Size(); ++j) {
    std::iota(layers.begin(), layers.end(), 0);
    for (int i = count; i > 1; --i)
      std::swap(layers[static_cast<std::size_t>(i - 1)],
                layers[static_cast<std::size_t>(random_.DrawIndex(i) - 1)]);
    for (std::size_t i = 0; i < places.size(); ++i)
      places[i][j] = (layers[i] + random_.Draw()) / count;
    if (!IsLimit(landscape_.Variable(j).position)) continue;
    const auto [least, most] = kTellingLimit;
    for (std::size_t i = 0; i < places.size(); i += 2)
      places[i][j] = LimitComponent(j, least, most);
  }
  return places;
}

/// A limit between `least` and `most` times the highest measured value, log-uniformly.
double Hops::LimitComponent(Eigen::Index j, double least, double most) {
  const double highest = landscape_.Variable(j).position == At::CxAst ? highestCx_ : highestCp_;
  return landscape_.ComponentOf(j,
                                highest * Exponential(Between(Logarithm(least), Logarithm(most))));
}

Place Hops::From(const Descent& base) {
  const double kind = random_.Draw();
  if (kind < kAlong) return AlongValley(base);
  return kind < kAlong + kAcross ? AcrossValley(base) : BestOfSome();
}

Place Hops::AlongValley(const Descent& base) {
  const double spread = Power(10.0, Between(kLeastSpread, kMostSpread));
  Eigen::VectorXd normal(landscape_.Size());
  for (double& component : normal) component = random_.GaussianRandom();
  return base.at + ShapeAround(base, spread).llt().matrixL() * normal;
}

std::vector<Eigen::Index> Hops::OneOrTwo() {
  const int size = static_cast<int>(landscape_.Size());
  const bool two = size > 1 && random_.Draw() < kTwoComponents;
  const Eigen::Index first = random_.DrawIndex(size) - 1;
  if (!two) return {first};
  // Any but the first.
  const Eigen::Index second = random_.DrawIndex(size - 1) - 1;
  return {first, second < first ? second : second + 1};
}

/// One or two components set anew, and the others moved to where the derivatives expect the least
/// score for them.
Place Hops::AcrossValley(const Descent& base) {
  Place place = base.at;
  for (const Eigen::Index j : OneOrTwo()) place[j] = FreshComponent(j, place);
  std::vector<Eigen::Index> others;
  for (Eigen::Index j = 0; j < place.size(); ++j)
    if (place[j] == base.at[j]) others.push_back(j);
  if (others.empty()) return place;
  const Eigen::VectorXd change = place - base.at;
  Eigen::MatrixXd normal = base.normal(others, others);
  normal.diagonal().array() +=
      kRidge * base.normal.diagonal().maxCoeff() + std::numeric_limits<double>::min();
  const Eigen::VectorXd force = base.normal(others, Eigen::all) * change;
  const Eigen::VectorXd answer = normal.ldlt().solve(force);
  place(others) -= answer.cwiseMax(-kFollow).cwiseMin(kFollow);
  return place;
}

/// A value for component `j`: anywhere or at a bound; for a limit half the time close to the data,
/// half of these with an exponent that makes it felt only there.
double Hops::FreshComponent(Eigen::Index j, Place& place) {
  const At position = landscape_.Variable(j).position;
  if (IsLimit(position) && random_.Draw() < kNearData) {
    if (random_.Draw() < kWithLowExponent) LowerExponentOf(position, place);
    return LimitComponent(j, kFeltLimit.least, kFeltLimit.most);
  }
  const double kind = random_.Draw();
  if (kind < kAnywhere) return random_.Draw();
  return kind < (1 + kAnywhere) / 2 ? 0 : 1;
}

void Hops::LowerExponentOf(At limit, Place& place) {
  const At exponent = limit == At::CxAst ? At::m : At::n;
  for (Eigen::Index k = 0; k < place.size(); ++k)
    if (landscape_.Variable(k).position == exponent) place[k] = Between(0, kLowExponent);
}

Place Hops::BestOfSome() {
  std::vector<Place> places(kSome, Place(landscape_.Size()));
  for (Place& place : places)
    for (double& component : place) component = random_.Draw();
  const std::vector<double> scores = landscape_.Scores(places);
  const auto least = std::min_element(scores.begin(), scores.end());
  return places[static_cast<std::size_t>(least - scores.begin())];
}

}  // namespace velmora
