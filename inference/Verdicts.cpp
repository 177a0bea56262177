#include "inference/Verdicts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "inference/Intervals.h"
#include "inference/Linearisation.h"
#include "inference/Neighbourhood.h"
#include "inference/Student.h"

namespace velmora {
namespace {

constexpr double kCorrelated = 0.95;
constexpr double kClearGain = 1e-3;  // of the score
constexpr int kFewAgree = 3;         // starts

/// Judges one parameter after the other.
class Judge {
 public:
  Judge(const FitProblem& problem, std::span<const double> best, std::span<const double> deviations)
      : problem_(problem),
        best_(best.begin(), best.end()),
        deviations_(deviations),
        score_(Objective(problem).Simulate(best).score),
        linear_(Linearise(problem, best)),
        around_(problem, best, linear_.free) {
    if (linear_.freedom <= 0) return;
    const double t = StudentQuantile(kIntervalLevel, linear_.freedom);
    threshold_ = score_ * (1 + t * t / linear_.freedom);
  }

  ParameterVerdicts Run() {
    ParameterVerdicts verdicts;
    const std::vector<Side> sides = SidesToTry();
    const std::vector<double> scores = around_.HeldAt(sides);
    for (std::size_t j = 0; j < best_.size(); ++j) {
      findings_.clear();
      JudgeEdge(j);
      for (std::size_t i = 0; i < sides.size(); ++i)
        if (sides[i].parameter == j) JudgeSide(sides[i], scores[i]);
      JudgeDependence(j);
      JudgeSamples(j);
      JudgeDeviation(j);
      verdicts.of.push_back({findings_});
    }
    if (scores.empty()) return verdicts;
    const double lowest = *std::min_element(scores.begin(), scores.end());
    if (lowest < (1 - kClearGain) * score_) verdicts.betterScore = lowest;
    return verdicts;
  }

 private:
  using Side = Neighbourhood::Side;

  void Add(FindingKind kind, double value, At other = At::muMax) {
    findings_.push_back({kind, value, other});
  }

  /// The place of parameter `j` among those inside their bounds, or how many these are.
  std::size_t FreeIndex(std::size_t j) const {
    return static_cast<std::size_t>(std::find(linear_.free.begin(), linear_.free.end(), j) -
                                    linear_.free.begin());
  }
  bool IsFree(std::size_t j) const { return FreeIndex(j) < linear_.free.size(); }

  bool IsAt(const Side& side) const {
    const auto& [position, lower, upper, start] = problem_.variables[side.parameter];
    const double value = best_[side.parameter];
    const bool nearUpper = value - lower >= upper - value;
    return !IsFree(side.parameter) && nearUpper == side.upper;
  }

  double BoundOf(const Side& side) const {
    const FitVariable& variable = problem_.variables[side.parameter];
    return side.upper ? variable.upper : variable.lower;
  }

  /// The bounds at which no parameter stands already.
  std::vector<Side> SidesToTry() const {
    std::vector<Side> sides;
    for (std::size_t j = 0; j < best_.size(); ++j)
      for (const Side& side : {Side{j, false}, Side{j, true}})
        if (!IsAt(side)) sides.push_back(side);
    return sides;
  }

  void JudgeEdge(std::size_t j) {
    for (const Side& side : {Side{j, false}, Side{j, true}})
      if (IsAt(side))
        Add(side.upper ? FindingKind::AtUpperBound : FindingKind::AtLowerBound, BoundOf(side));
  }

  /// `score`: with the parameter held at that bound.
  void JudgeSide(const Side& side, double score) {
    if (score > threshold_) return;
    Add(side.upper ? FindingKind::OpenAbove : FindingKind::OpenBelow, BoundOf(side));
  }

  void JudgeDependence(std::size_t j) {
    if (!IsFree(j)) return;
    if (!linear_.Determined()) return Add(FindingKind::NotAlone, 0);
    const std::size_t own = FreeIndex(j);
    double strongest = 0;
    std::size_t partner = own;
    for (std::size_t i = 0; i < linear_.free.size(); ++i) {
      const double correlation = i == own ? 0 : CorrelationOf(own, i);
      if (std::fabs(correlation) <= std::fabs(strongest)) continue;
      strongest = correlation;
      partner = i;
    }
    if (std::fabs(strongest) > kCorrelated)
      Add(FindingKind::Together, strongest, problem_.variables[linear_.free[partner]].position);
  }

  /// Where the score has kinks, small differences see only the tooth on which the optimum stands.
  double CorrelationOf(std::size_t a, std::size_t b) const {
    const double near = linear_.Correlation(a, b), wide = around_.Correlation(a, b);
    return std::fabs(near) <= kCorrelated && std::fabs(near) < std::fabs(wide) ? wide : near;
  }

  void JudgeSamples(std::size_t j) {
    if (const auto missing = MissingFor(problem_.variables[j].position, problem_, best_))
      findings_.push_back({FindingKind::NoData, 0, At::muMax, *missing});
  }

  void JudgeDeviation(std::size_t j) {
    if (!deviations_.empty() && deviations_[j] > std::fabs(best_[j]))
      Add(FindingKind::WideDeviation, deviations_[j]);
  }

  const FitProblem& problem_;
  const std::vector<double> best_;
  const std::span<const double> deviations_;
  const double score_;
  const Linearisation linear_;
  const Neighbourhood around_;
  double threshold_ = std::numeric_limits<double>::infinity();  // of a score that is as good
  std::vector<Finding> findings_;
};

RunKind KindOf(const FitVerdict& verdict) {
  if (verdict.betterScore) return RunKind::NotAtMinimum;
  if (FewAgree(verdict.agreeing, verdict.starts)) return RunKind::StartsDisagree;
  return verdict.trends.empty() ? RunKind::Sound : RunKind::NotRandom;
}

}  // namespace

std::size_t ParameterVerdicts::CountDetermined() const {
  return static_cast<std::size_t>(std::count_if(
      of.begin(), of.end(), [](const ParameterVerdict& verdict) { return verdict.Determined(); }));
}

bool FewAgree(int agreeing, int starts) {
  return starts > 0 && agreeing < kFewAgree;
}

ParameterVerdicts JudgeParameters(const FitProblem& problem, std::span<const double> best,
                                  std::span<const double> deviations) {
  return Judge(problem, best, deviations).Run();
}

FitVerdict JudgeFit(const FitProblem& problem, const SearchResult& result,
                    const Deviations& deviations) {
  FitVerdict verdict;
  verdict.starts = result.starts;
  verdict.agreeing = result.agreeing;
  verdict.parameters = JudgeParameters(problem, result.best, deviations.values);
  verdict.betterScore = verdict.parameters.betterScore;
  if (const double score = FittedFrom(problem, result.best);
      score < (1 - kClearGain) * result.score)
    verdict.betterScore = std::min(score, verdict.betterScore.value_or(score));
  const auto [trends, worst] = PatternOf(problem, Objective(problem).Simulate(result.best));
  verdict.trends = trends;
  verdict.worst = worst;
  verdict.kind = result.end == SearchEnd::Converged ? KindOf(verdict) : RunKind::Unfinished;
  return verdict;
}

std::string_view NameOf(const ParameterVerdict& verdict) {
  static constexpr std::array<std::string_view, 8> kNames = {
      "at its lower bound", "at its upper bound",   "open below", "open above",
      "only together",      "not determined alone", "no data",    "wide deviation"};
  if (verdict.Determined()) return "determined";
  return kNames.at(static_cast<std::size_t>(verdict.findings.front().kind));
}

std::string_view NameOf(RunKind kind) {
  static constexpr std::array<std::string_view, 5> kNames = {
      "unfinished", "not at the minimum", "starts disagree", "residuals not random", "sound"};
  return kNames.at(static_cast<std::size_t>(kind));
}

}  // namespace velmora
