#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Descent.h"
#include "estimation/UniformGenerator.h"
#include "inference/Intervals.h"
#include "inference/Student.h"

namespace velmora {
namespace {

constexpr int kIterations = 40;    // of a fit, from the best of the measured data
constexpr double kAtBound = 1e-9;  // of a component

/// The scored points of an experiment: all but the last.
std::size_t ScoredPoints(const Experiment& experiment) {
  return experiment.time.empty() ? 0 : experiment.time.size() - 1;
}

/// Measured data drawn anew about the fitted curves.
class Resampling {
 public:
  Resampling(const FitProblem& problem, std::span<const double> best, double widening)
      : problem_(problem), fit_(Objective(problem).Simulate(best)), widening_(widening) {}

  FitProblem Draw(UniformGenerator& random) const {
    FitProblem drawn = problem_;
    for (std::size_t e = 0; e < drawn.experiments.size(); ++e) {
      const MeasuredSeries& simulated = fit_.experiments[e].simulated;
      Experiment& experiment = drawn.experiments[e];
      const std::size_t scored = ScoredPoints(experiment);
      Redraw(experiment.Cx, simulated.Cx, scored, random);
      Redraw(experiment.Cs, simulated.Cs, scored, random);
      Redraw(experiment.Cp, simulated.Cp, scored, random);
    }
    return drawn;
  }

 private:
  void Redraw(std::vector<double>& measured, const std::vector<double>& simulated,
              std::size_t scored, UniformGenerator& random) const {
    std::vector<double> residuals;
    for (std::size_t k = 0; k < scored; ++k) residuals.push_back(measured[k] - simulated[k]);
    for (std::size_t k = 0; k < scored; ++k) {
      const int drawn = random.DrawIndex(static_cast<int>(scored)) - 1;
      measured[k] = simulated[k] + widening_ * residuals[static_cast<std::size_t>(drawn)];
    }
  }

  const FitProblem& problem_;
  const SimulatedFit fit_;
  const double widening_;
};

/// The place of the best for a problem, descended to from `from`.
Place Fitted(const FitProblem& problem, const Place& from) {
  Landscape landscape(problem, std::numeric_limits<std::int32_t>::max(), [] { return false; });
  Descent descent = BeginDescent(from, landscape);
  Descend(descent, kIterations, landscape);
  return descent.at;
}

/// The value below which the share `probability` of ascending values lies (Hyndman and Fan 1996,
/// type 6: at probability (n + 1)).
double Quantile(const std::vector<double>& ascending, double probability) {
  const double at = probability * static_cast<double>(ascending.size() + 1) - 1;
  const double last = static_cast<double>(ascending.size() - 1);
  const auto below = static_cast<std::size_t>(std::clamp(std::floor(at), 0.0, last));
  const auto above = static_cast<std::size_t>(std::clamp(std::floor(at) + 1, 0.0, last));
  const double share = std::clamp(at - static_cast<double>(below), 0.0, 1.0);
  return ascending[below] + share * (ascending[above] - ascending[below]);
}

}  // namespace

Intervals BootstrapIntervals(const FitProblem& problem, std::span<const double> best,
                             int replicates, std::int32_t seed,
                             const std::function<bool()>& stopRequested) {
  Intervals intervals;
  intervals.method = IntervalMethod::Bootstrap;
  intervals.of.resize(best.size());
  Landscape landscape(problem, 0, [] { return false; });
  const int freedom = static_cast<int>(landscape.Scored() - landscape.Size());
  if (freedom <= 0) return intervals;
  const double widening = std::sqrt(static_cast<double>(landscape.Scored()) / freedom);
  const Resampling resampling(problem, best, widening);
  const Place from = landscape.PlaceOf({best.begin(), best.end()});
  UniformGenerator random(seed);
  std::vector<std::vector<double>> components(best.size());
  for (; intervals.replicates < replicates && !stopRequested(); ++intervals.replicates) {
    const Place place = Fitted(resampling.Draw(random), from);
    for (std::size_t j = 0; j < best.size(); ++j)
      components[j].push_back(place[static_cast<Eigen::Index>(j)]);
  }
  if (intervals.replicates == 0) return intervals;
  const double outside = NormalProbability(-StudentQuantile(kIntervalLevel, freedom));
  for (std::size_t j = 0; j < best.size(); ++j) {
    std::sort(components[j].begin(), components[j].end());
    const auto at = static_cast<Eigen::Index>(j);
    Place lower = from, upper = from;
    lower[at] = Quantile(components[j], outside);
    upper[at] = Quantile(components[j], 1 - outside);
    if (lower[at] > kAtBound) intervals.of[j].lower = landscape.CandidateAt(lower)[j];
    if (upper[at] < 1 - kAtBound) intervals.of[j].upper = landscape.CandidateAt(upper)[j];
  }
  return intervals;
}

}  // namespace velmora
