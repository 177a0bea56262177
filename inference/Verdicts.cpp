#include "inference/Verdicts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "estimation/Descent.h"
#include "inference/Intervals.h"
#include "inference/Linearisation.h"
#include "inference/Student.h"

namespace velmora {
namespace {

constexpr double kCorrelated = 0.95;
constexpr int kIterations = 40;      // of a fit beside the optimum
constexpr double kClearGain = 1e-3;  // of the score
constexpr int kFewAgree = 3;         // starts

std::int32_t Unlimited() {
  return std::numeric_limits<std::int32_t>::max();
}

bool Never() {
  return false;
}

/// The score after the parameters of `problem` are fitted from `start`.
double FittedFrom(const FitProblem& problem, const std::vector<double>& start) {
  Landscape landscape(problem, Unlimited(), Never);
  Descent descent = BeginDescent(landscape.PlaceOf(start), landscape);
  if (!start.empty()) Descend(descent, kIterations, landscape);
  return descent.score;
}

/// The score with parameter `j` held at `value` and the others fitted again from `best`.
double HeldAt(double value, std::size_t j, FitProblem problem, std::vector<double> best) {
  const auto at = static_cast<std::ptrdiff_t>(j);
  for (KineticParameters& row : problem.rows) row[problem.variables[j].position] = value;
  problem.variables.erase(problem.variables.begin() + at);
  best.erase(best.begin() + at);
  return FittedFrom(problem, best);
}

/// Whether a sample that is scored, with the experiment's parameters at the optimum, is as `holds`.
template <class Holds>
bool AnySample(const FitProblem& problem, std::span<const double> best, Holds&& holds) {
  for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
    const Experiment& experiment = problem.experiments[e];
    KineticParameters p = problem.rows[e];
    for (std::size_t j = 0; j < best.size(); ++j) p[problem.variables[j].position] = best[j];
    for (std::size_t k = 0; k + 1 < experiment.time.size(); ++k)
      if (holds(p, State{experiment.Cx[k], experiment.Cs[k], experiment.Cp[k]})) return true;
  }
  return false;
}

/// Which sample a parameter acts on, by the switches of its model.
std::optional<MissingSample> NeededFor(At position, const KineticParameters& p) {
  switch (position) {
    case At::Ks:
      if (p[At::B] == 1) return MissingSample::LowCsForCells;
      [[fallthrough]];
    case At::u:
      return p[At::u] == 1 ? MissingSample::LowCs : MissingSample::LowCsPower;
    case At::Kis:
    case At::v:
      return MissingSample::HighCs;
    case At::Kip:
      return p[At::G] == 1 ? MissingSample::HighCpAiba : MissingSample::HighCp;
    case At::CpAst:
    case At::n:
      return MissingSample::HalfOfCpAst;
    case At::CxAst:
    case At::m:
      return MissingSample::HalfOfCxAst;
    default:
      return std::nullopt;
  }
}

/// Whether a sample is one of those that `needed` names.
bool Shows(MissingSample needed, const KineticParameters& p, const State& sample) {
  switch (needed) {
    case MissingSample::LowCs:
      return sample.Cs < 2 * p[At::Ks];
    case MissingSample::LowCsForCells:
      return sample.Cs < 2 * p[At::Ks] * sample.Cx;
    case MissingSample::LowCsPower:
      return sample.Cs < 2 * std::pow(p[At::Ks], 1 / p[At::u]);
    case MissingSample::HighCs:
      return sample.Cs > p[At::Kis];
    case MissingSample::HighCp:
      return sample.Cp > p[At::Kip];
    case MissingSample::HighCpAiba:
      return sample.Cp > std::log(2) / p[At::Kip];
    case MissingSample::HalfOfCpAst:
      return sample.Cp > p[At::CpAst] / 2;
    case MissingSample::HalfOfCxAst:
      return sample.Cx > p[At::CxAst] / 2;
  }
  return true;
}

/// Judges one parameter after the other.
class Judge {
 public:
  Judge(const FitProblem& problem, std::span<const double> best, std::span<const double> deviations)
      : problem_(problem),
        best_(best.begin(), best.end()),
        deviations_(deviations),
        score_(Objective(problem).Simulate(best).score),
        linear_(Linearise(problem, best)) {
    if (linear_.freedom <= 0) return;
    const double t = StudentQuantile(kIntervalLevel, linear_.freedom);
    threshold_ = score_ * (1 + t * t / linear_.freedom);
  }

  ParameterVerdicts Run() {
    ParameterVerdicts verdicts;
    for (std::size_t j = 0; j < best_.size(); ++j) {
      findings_.clear();
      JudgeSides(j);
      JudgeDependence(j);
      JudgeSamples(j);
      JudgeDeviation(j);
      verdicts.of.push_back({findings_});
    }
    if (lowest_ < (1 - kClearGain) * score_) verdicts.betterScore = lowest_;
    return verdicts;
  }

 private:
  void Add(FindingKind kind, double value, At other = At::muMax) {
    findings_.push_back({kind, value, other});
  }

  /// The place of parameter `j` among those inside their bounds, or how many these are.
  std::size_t FreeIndex(std::size_t j) const {
    return static_cast<std::size_t>(std::find(linear_.free.begin(), linear_.free.end(), j) -
                                    linear_.free.begin());
  }
  bool IsFree(std::size_t j) const { return FreeIndex(j) < linear_.free.size(); }

  void JudgeSides(std::size_t j) {
    const auto& [position, lower, upper, start] = problem_.variables[j];
    const bool atLower = !IsFree(j) && best_[j] - lower < upper - best_[j];
    const bool atUpper = !IsFree(j) && !atLower;
    if (atLower) Add(FindingKind::AtLowerBound, lower);
    if (atUpper) Add(FindingKind::AtUpperBound, upper);
    if (!atLower && IsOpenAt(lower, j)) Add(FindingKind::OpenBelow, lower);
    if (!atUpper && IsOpenAt(upper, j)) Add(FindingKind::OpenAbove, upper);
  }

  bool IsOpenAt(double bound, std::size_t j) {
    const double score = HeldAt(bound, j, problem_, best_);
    lowest_ = std::min(lowest_, score);
    return score <= threshold_;
  }

  void JudgeDependence(std::size_t j) {
    if (!IsFree(j)) return;
    if (!linear_.Determined()) return Add(FindingKind::NotAlone, 0);
    const std::size_t own = FreeIndex(j);
    double strongest = 0;
    std::size_t partner = own;
    for (std::size_t i = 0; i < linear_.free.size(); ++i) {
      const double correlation = i == own ? 0 : linear_.Correlation(own, i);
      if (std::fabs(correlation) <= std::fabs(strongest)) continue;
      strongest = correlation;
      partner = i;
    }
    if (std::fabs(strongest) > kCorrelated)
      Add(FindingKind::Together, strongest, problem_.variables[linear_.free[partner]].position);
  }

  /// The experiments of a fit have one model.
  void JudgeSamples(std::size_t j) {
    if (problem_.rows.empty()) return;
    KineticParameters p = problem_.rows.front();
    for (std::size_t i = 0; i < best_.size(); ++i) p[problem_.variables[i].position] = best_[i];
    const auto needed = NeededFor(problem_.variables[j].position, p);
    if (!needed) return;
    const bool shown = AnySample(problem_, best_, [&](const auto& at, const State& sample) {
      return Shows(*needed, at, sample);
    });
    if (!shown) findings_.push_back({FindingKind::NoData, 0, At::muMax, *needed});
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
  double threshold_ = std::numeric_limits<double>::infinity();  // of a score that is as good
  double lowest_ = std::numeric_limits<double>::infinity();
  std::vector<Finding> findings_;
};

RunKind KindOf(const FitVerdict& verdict) {
  if (verdict.betterScore) return RunKind::NotAtMinimum;
  if (verdict.FewAgree()) return RunKind::StartsDisagree;
  return verdict.trends.empty() ? RunKind::Sound : RunKind::NotRandom;
}

}  // namespace

std::size_t ParameterVerdicts::CountDetermined() const {
  return static_cast<std::size_t>(std::count_if(
      of.begin(), of.end(), [](const ParameterVerdict& verdict) { return verdict.Determined(); }));
}

bool FitVerdict::FewAgree() const {
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
