#include "inference/Comparison.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <future>
#include <limits>
#include <mutex>

#include "cultivation/FitSetUp.h"
#include "estimation/Marquardt.h"
#include "inference/Proposal.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kLevel = 2;  // of AICc

/// Ends a model's search with the comparison.
class SearchWatch : public SearchObserver {
 public:
  explicit SearchWatch(ComparisonObserver& observer) : observer_(observer) {}
  bool StopRequested() override { return observer_.StopRequested(); }

 private:
  ComparisonObserver& observer_;
};

/// How long a search takes beside another, roughly: it grows with the square of the number of
/// parameters.
double WorkOf(const ComparedModel& compared) {
  return static_cast<double>(compared.variables.size() * compared.variables.size());
}

/// R² of a series of each experiment: one minus the squares of the residuals over those of the
/// distances from the mean of all. An experiment's last point is left out, as in the score.
class Explained {
 public:
  void Add(const std::vector<double>& measured, const std::vector<double>& simulated) {
    for (std::size_t k = 0; k + 1 < measured.size(); ++k) {
      const double residual = measured[k] - simulated[k];
      residuals_ += residual * residual;
      values_.push_back(measured[k]);
    }
  }

  double RSquared() const {
    double mean = 0, squares = 0;
    for (const double value : values_) mean += value / static_cast<double>(values_.size());
    for (const double value : values_) squares += (value - mean) * (value - mean);
    return squares > 0 ? 1 - residuals_ / squares : std::numeric_limits<double>::quiet_NaN();
  }

 private:
  std::vector<double> values_;
  double residuals_ = 0;
};

/// The model with the ranges that the data propose for its parameters.
ComparedModel BeforeFit(const Model& model, std::span<const Experiment> experiments) {
  ComparedModel compared;
  compared.model = &model;
  compared.variables = FittedOf(ProposeRanges(experiments, model));
  const std::vector<At> known = PositionsOf(compared.variables);
  for (const Parameter& parameter : kFittable)
    if (Uses(model, parameter.position) &&
        std::find(known.begin(), known.end(), parameter.position) == known.end())
      compared.unknown = parameter.position;
  return compared;
}

/// `problem` with the parameters that the model fits, under the model's switches.
FitProblem ProblemFor(const ComparedModel& compared, FitProblem problem) {
  problem.variables = compared.variables;
  for (KineticParameters& row : problem.rows) SetModelSwitches(*compared.model, row);
  return problem;
}

void Fit(const FitProblem& common, std::int32_t seed, ComparisonObserver& observer,
         ComparedModel& compared) {
  if (compared.unknown || observer.StopRequested()) {
    compared.result.end = compared.unknown ? SearchEnd::Refused : SearchEnd::Stopped;
    return;
  }
  const FitProblem problem = ProblemFor(compared, common);
  SearchWatch watch(observer);
  compared.result = SearchMarquardt(problem, {.IU = seed}, watch);
  if (!compared.Ranked()) return;
  const Objective objective(problem);
  compared.criterion = Aicc(compared.result.score, objective.Scored(), compared.variables.size());
  compared.deviations = ComputeDeviations(problem, compared.result.best).values;
  compared.verdicts = JudgeParameters(problem, compared.result.best, compared.deviations);
  compared.explained = ExplainedBy(objective.Simulate(compared.result.best), problem);
}

/// Fits the models in their order, the next one by whichever thread is free.
class Crew {
 public:
  Crew(std::vector<ComparedModel>& models, const FitProblem& problem,
       const ComparisonSettings& settings, ComparisonObserver& observer)
      : models_(models), problem_(problem), settings_(settings), observer_(observer) {
    for (const ComparedModel& compared : models) work_ += WorkOf(compared);
  }

  void Run() {
    observer_.Report(0, 0);
    std::vector<std::future<void>> others;
    for (unsigned thread = 1; thread < settings_.threads; ++thread)
      others.push_back(std::async(std::launch::async, [this] { FitRest(); }));
    FitRest();
    for (std::future<void>& other : others) other.get();
  }

 private:
  void FitRest() {
    for (std::size_t i = next_++; i < models_.size(); i = next_++) {
      Fit(problem_, settings_.IU, observer_, models_[i]);
      const std::scoped_lock lock(reporting_);
      workDone_ += WorkOf(models_[i]);
      observer_.Report(++done_, workDone_ / work_);
    }
  }

  std::vector<ComparedModel>& models_;
  const FitProblem& problem_;
  const ComparisonSettings settings_;
  ComparisonObserver& observer_;
  std::atomic<std::size_t> next_{0};
  std::mutex reporting_;
  std::size_t done_ = 0;
  double work_ = 0, workDone_ = 0;
};

/// The best first; where nothing tells them apart, in the order in which they were compared.
void Rank(std::vector<ComparedModel>& models) {
  std::stable_sort(models.begin(), models.end(),
                   [](const ComparedModel& a, const ComparedModel& b) {
                     if (a.Ranked() != b.Ranked()) return a.Ranked();
                     return a.Ranked() && a.criterion < b.criterion;
                   });
  std::vector<double> criteria;
  for (const ComparedModel& compared : models)
    criteria.push_back(compared.Ranked() ? compared.criterion : kInfinite);
  const std::vector<double> weights = AkaikeWeights(criteria);
  for (std::size_t i = 0; i < models.size(); ++i) models[i].weight = weights[i];
}

}  // namespace

PerVariable<double> ExplainedBy(const SimulatedFit& fit, const FitProblem& problem) {
  Explained Cx, Cs, Cp;
  for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
    const MeasuredSeries& simulated = fit.experiments[e].simulated;
    Cx.Add(problem.experiments[e].Cx, simulated.Cx);
    Cs.Add(problem.experiments[e].Cs, simulated.Cs);
    Cp.Add(problem.experiments[e].Cp, simulated.Cp);
  }
  return {Cx.RSquared(), Cs.RSquared(), Cp.RSquared()};
}

bool ComparedModel::Ranked() const {
  return result.end == SearchEnd::Converged || result.end == SearchEnd::EvaluationLimit;
}

std::span<const ComparedModel> Comparison::Ranked() const {
  const auto end = std::find_if(models.begin(), models.end(),
                                [](const ComparedModel& compared) { return !compared.Ranked(); });
  return {models.begin(), end};
}

std::span<const ComparedModel> Comparison::Level() const {
  const auto ranked = Ranked();
  const auto end = std::find_if(ranked.begin(), ranked.end(), [&](const ComparedModel& compared) {
    return !(compared.criterion - ranked.front().criterion < kLevel);
  });
  return {ranked.begin(), end};
}

Comparison CompareModels(const std::vector<Experiment>& experiments,
                         const CultivationConditions& conditions,
                         std::span<const Model* const> models, const ComparisonSettings& settings,
                         ComparisonObserver& observer) {
  const FitProblem problem = ProblemOf(experiments, conditions);
  Comparison comparison{Objective(problem).Scored(), {}};
  for (const Model* const model : models)
    comparison.models.push_back(BeforeFit(*model, experiments));
  Crew(comparison.models, problem, settings, observer).Run();
  Rank(comparison.models);
  return comparison;
}

double Aicc(double sumOfSquares, std::size_t values, std::size_t parameters) {
  const auto n = static_cast<double>(values);
  const double k = static_cast<double>(parameters) + 1;
  if (n - k - 1 <= 0) return kInfinite;
  // Data without noise are fitted to a sum that has no logarithm.
  const double perValue = std::max(sumOfSquares / n, std::numeric_limits<double>::min());
  return n * Logarithm(perValue) + 2 * k + 2 * k * (k + 1) / (n - k - 1);
}

std::vector<double> AkaikeWeights(std::span<const double> criteria) {
  std::vector<double> weights(criteria.size(), 0);
  if (criteria.empty()) return weights;
  const double least = *std::min_element(criteria.begin(), criteria.end());
  if (!std::isfinite(least)) return weights;
  double sum = 0;
  for (const double criterion : criteria) sum += Exponential((least - criterion) / 2);
  for (std::size_t i = 0; i < criteria.size(); ++i)
    weights[i] = Exponential((least - criteria[i]) / 2) / sum;
  return weights;
}

}  // namespace velmora
