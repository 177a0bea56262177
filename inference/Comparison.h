// Which growth model describes the data best, for the parameters that it needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/Experiment.h"
#include "estimation/SearchResult.h"
#include "inference/Verdicts.h"
#include "kinetics/Modelos.h"

namespace velmora {

/// What one model came to.
struct ComparedModel {
  const Model* model = nullptr;
  std::vector<FitVariable> variables;  // with the starts and bounds that the data propose
  std::optional<At> unknown;  // a parameter that the data say nothing of: nothing was fitted
  SearchResult result;

  // Of a model whose search ended by itself.
  double criterion = 0;           // AICc; infinite where the data are too few for it
  double weight = 0;              // Akaike weight, 0 to 1
  PerVariable<double> explained;  // R², of g/L; not a number where the data do not vary
  ParameterVerdicts verdicts;
  std::vector<double> deviations;  // of the parameters; empty where there are none

  bool Ranked() const;
};

struct Comparison {
  std::size_t values = 0;             // scored ones, n
  std::vector<ComparedModel> models;  // the best first; those without a rank follow

  /// The models with a rank.
  std::span<const ComparedModel> Ranked() const;
  /// The best and those whose criterion is less than 2 above it: the data do not tell them apart
  /// (Burnham and Anderson 2002). Empty where no criterion is finite.
  std::span<const ComparedModel> Level() const;
};

/// Hears of a comparison, from any of its threads, but of one report at a time.
class ComparisonObserver {
 public:
  virtual ~ComparisonObserver() = default;
  /// Asked every few simulations; true ends all searches.
  virtual bool StopRequested() { return false; }
  /// `done` of all models have ended, and `share` (0 to 1) of the work, by a rough estimate.
  virtual void Report(std::size_t /*done*/, double /*share*/) {}
};

struct ComparisonSettings {
  std::int32_t IU = 5471;  // seed of every search
  unsigned threads = 1;
};

/// Fits every one of `models` to the experiments by the Levenberg-Marquardt method and ranks them.
/// The conditions, as many as experiments, give all but the model, what is fitted and from where:
/// each model starts where `ProposeRanges` says. Bounds that suit one model can keep another from
/// its optimum, so that those of the conditions' own fit do not count. The result does not depend
/// on the number of threads. A search that was stopped, or met a fault from every start, has no
/// rank.
Comparison CompareModels(const std::vector<Experiment>& experiments,
                         const CultivationConditions& conditions,
                         std::span<const Model* const> models, const ComparisonSettings& settings,
                         ComparisonObserver& observer);

/// R² of the values in g/L that are scored; not a number where these do not vary.
PerVariable<double> ExplainedBy(const SimulatedFit& fit, const FitProblem& problem);

/// Akaike's information criterion for small samples of a least-squares fit of `parameters`, to
/// which the variance is added, to `values` values (Hurvich and Tsai 1989); infinite where the
/// values are not at least three more than the parameters.
double Aicc(double sumOfSquares, std::size_t values, std::size_t parameters);

/// The Akaike weight of each criterion (Burnham and Anderson 2002); they add up to 1, unless all
/// are infinite.
std::vector<double> AkaikeWeights(std::span<const double> criteria);

}  // namespace velmora
