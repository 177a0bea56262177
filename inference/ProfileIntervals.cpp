#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Descent.h"
#include "estimation/Polish.h"
#include "estimation/Workers.h"
#include "inference/Intervals.h"
#include "inference/Student.h"

namespace velmora {
namespace {

constexpr double kFirstStep = 0.01;  // of a component
constexpr double kLongestStep = 0.1;
constexpr double kRisePerStep = 0.5;     // of the limit: how far a step should go
constexpr int kMostSteps = 60;           // of one side
constexpr int kIterations = 40;          // of a fit of the others
constexpr double kSimplexEdge = 0.05;    // of a component
constexpr int kSimplexEvaluations = 60;  // for each of the others
constexpr double kCloseEnough = 1e-3;    // of the limit
constexpr int kMostHalvings = 12;
constexpr double kClearGain = 1e-3;  // of the score

std::int32_t Unlimited() {
  return std::numeric_limits<std::int32_t>::max();
}

/// The problem with parameter `j` held at `value`.
FitProblem Holding(FitProblem problem, std::size_t j, double value) {
  for (KineticParameters& row : problem.rows) row[problem.variables[j].position] = value;
  problem.variables.erase(problem.variables.begin() + static_cast<std::ptrdiff_t>(j));
  return problem;
}

/// The profile of one parameter.
class Profile {
 public:
  Profile(const FitProblem& problem, std::span<const double> best, std::size_t j,
          const std::function<bool()>& stopRequested)
      : problem_(problem),
        j_(j),
        stopRequested_(stopRequested),
        whole_(problem, Unlimited(), [] { return false; }),
        at_(whole_.PlaceOf({best.begin(), best.end()})) {
    const double freedom = static_cast<double>(whole_.Scored() - whole_.Size());
    best_ = {at_[Index()], whole_.Score(at_), Others(at_)};
    variance_ = best_.score / freedom;
    limit_ = StudentQuantile(kIntervalLevel, static_cast<int>(freedom));
    points_.push_back({ValueAt(best_.component), best_.score});
    Descent descent = BeginDescent(at_, whole_);
    // Differences across a jump would explain the rise that is looked for.
    descent.normal = Eigen::MatrixXd::Zero(at_.size(), at_.size());
    kinked_ = HasKink(descent, whole_);
  }

  Interval Find() {
    Interval interval;
    interval.lower = Side(-1);
    interval.upper = Side(1);
    std::sort(points_.begin(), points_.end(),
              [](const ProfilePoint& a, const ProfilePoint& b) { return a.value < b.value; });
    interval.profile = std::move(points_);
    return interval;
  }

 private:
  struct Point {
    double component = 0;
    double score = 0;
    Place others;
  };

  Eigen::Index Index() const { return static_cast<Eigen::Index>(j_); }

  Place Others(const Place& place) const {
    Place others(place.size() - 1);
    others << place.head(Index()), place.tail(place.size() - Index() - 1);
    return others;
  }

  double ValueAt(double component) const {
    Place place = at_;
    place[Index()] = component;
    return whole_.CandidateAt(place)[j_];
  }

  /// The signed root of the rise of the score, on which a linear model gives a straight line.
  double Tau(const Point& point) const {
    return std::sqrt(std::max(0.0, point.score - best_.score) / variance_);
  }

  /// The others fitted again from `from`, and where that does not do better, from the best.
  Point Fitted(double component, const Place& from) {
    Landscape landscape(Holding(problem_, j_, ValueAt(component)), Unlimited(), stopRequested_);
    std::vector<Descent> descents = BeginDescents({from, best_.others}, landscape);
    if (from.size() > 0) Descend(descents, kIterations, landscape);
    Descent& descent = descents[descents[1].score < descents[0].score ? 1 : 0];
    if (from.size() > 0 && kinked_ && std::isfinite(descent.score))
      LookPastKinks(descent, landscape);
    points_.push_back({ValueAt(component), descent.score});
    return {component, descent.score, descent.at};
  }

  /// A simplex wider than the kinks steps over those that hold a descent.
  void LookPastKinks(Descent& descent, Landscape& landscape) const {
    const Eigen::Index size = descent.at.size();
    const Eigen::MatrixXd edges = kSimplexEdge * Eigen::MatrixXd::Identity(size, size);
    Found found{descent.at, descent.score};
    WalkSimplex(found, edges, kSimplexEvaluations * static_cast<int>(size), landscape);
    Descent after = BeginDescent(found.at, landscape);
    Descend(after, kIterations, landscape);
    if (after.score < descent.score) descent = after;
  }

  /// Walks from the best towards a bound; nothing where the score stays low as far as there.
  std::optional<double> Side(int direction) {
    const double end = direction < 0 ? 0 : 1;
    Point inside = best_;
    double step = kFirstStep;
    for (int i = 0; i < kMostSteps && inside.component != end && !stopRequested_(); ++i) {
      const double next = std::clamp(inside.component + direction * step, 0.0, 1.0);
      const Point point = Fitted(next, inside.others);
      if (Tau(point) >= limit_) return Crossing(inside, point);
      const double rise = std::fabs(Tau(point) - Tau(inside));
      const double wanted = rise > 0 ? step * kRisePerStep * limit_ / rise : kLongestStep;
      step = std::clamp(wanted, step / 4, std::min(kLongestStep, 2 * step));
      inside = point;
    }
    return std::nullopt;
  }

  /// Between a place below the limit and one above it.
  double Crossing(Point inside, Point outside) {
    for (int i = 0; i < kMostHalvings && !stopRequested_(); ++i) {
      if (std::fabs(Tau(inside) - limit_) <= kCloseEnough * limit_) break;
      const double low = Tau(inside), high = std::min(Tau(outside), 4 * limit_);
      // Straight in tau, and well inside: the end far away draws nearer too.
      const double share = std::clamp((limit_ - low) / (high - low), 0.05, 0.95);
      const double between = inside.component + share * (outside.component - inside.component);
      const Point point = Fitted(between, inside.others);
      (Tau(point) < limit_ ? inside : outside) = point;
      if (std::fabs(Tau(point) - limit_) <= kCloseEnough * limit_) return ValueAt(between);
    }
    return ValueAt(inside.component);
  }

  const FitProblem& problem_;
  const std::size_t j_;
  const std::function<bool()>& stopRequested_;
  Landscape whole_;
  const Place at_;
  Point best_;
  double variance_ = 0;
  double limit_ = 0;     // of tau
  bool kinked_ = false;  // the score, at the best
  std::vector<ProfilePoint> points_;
};

}  // namespace

Intervals ProfileIntervals(const FitProblem& problem, std::span<const double> best,
                           unsigned threads, const std::function<bool()>& stopRequested) {
  Intervals intervals;
  intervals.method = IntervalMethod::Profile;
  intervals.of.resize(best.size());
  if (Objective(problem).Scored() <= best.size()) return intervals;
  Workers(threads).ForEach(best.size(), [&](std::size_t j, unsigned) {
    intervals.of[j] = Profile(problem, best, j, stopRequested).Find();
  });
  double lowest = std::numeric_limits<double>::infinity();
  for (const Interval& interval : intervals.of)
    for (const ProfilePoint& point : interval.profile) lowest = std::min(lowest, point.score);
  if (lowest < (1 - kClearGain) * Objective(problem).Simulate(best).score)
    intervals.betterScore = lowest;
  return intervals;
}

}  // namespace velmora
