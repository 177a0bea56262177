#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Descent.h"
#include "estimation/UniformGenerator.h"
#include "inference/Intervals.h"
#include "inference/Student.h"

namespace velmora {
namespace {

constexpr int kSideBySide = 100;   // fits
constexpr int kIterations = 40;    // of a fit, from the best of the measured data
constexpr double kAtBound = 1e-9;  // of a component

/// The scored points of an experiment: all but the last.
std::size_t ScoredPoints(const Experiment& experiment) {
  return experiment.time.empty() ? 0 : experiment.time.size() - 1;
}

/// Measured data drawn anew about the fitted curves, as the residuals of the measured ones see
/// them.
class Resampling {
 public:
  Resampling(const FitProblem& problem, std::span<const double> best, double widening)
      : problem_(problem), fit_(Objective(problem).Simulate(best)), widening_(widening) {}

  OtherData Draw(UniformGenerator& random) const {
    std::vector<double> shift, factor;
    for (std::size_t e = 0; e < problem_.experiments.size(); ++e) {
      const Experiment& measured = problem_.experiments[e];
      const MeasuredSeries& simulated = fit_.experiments[e].simulated;
      const std::size_t scored = ScoredPoints(measured);
      const PerVariable<Drawn> drawn{Redrawn(measured.Cx, simulated.Cx, scored, random),
                                     Redrawn(measured.Cs, simulated.Cs, scored, random),
                                     Redrawn(measured.Cp, simulated.Cp, scored, random)};
      for (std::size_t k = 0; k < scored; ++k)
        for (const Drawn* series : {&drawn.Cx, &drawn.Cs, &drawn.Cp}) {
          shift.push_back(series->shift[k]);
          factor.push_back(series->factor);
        }
    }
    return {Eigen::Map<Eigen::VectorXd>(shift.data(), static_cast<Eigen::Index>(shift.size())),
            Eigen::Map<Eigen::VectorXd>(factor.data(), static_cast<Eigen::Index>(factor.size()))};
  }

 private:
  struct Drawn {
    std::vector<double> shift;  // of the normalised values
    double factor = 1;          // the old scale over the new one
  };

  Drawn Redrawn(const std::vector<double>& measured, const std::vector<double>& simulated,
                std::size_t scored, UniformGenerator& random) const {
    std::vector<double> values = measured;
    for (std::size_t k = 0; k < scored; ++k) {
      const auto i = static_cast<std::size_t>(random.DrawIndex(static_cast<int>(scored)) - 1);
      values[k] = simulated[k] + widening_ * (measured[i] - simulated[i]);
    }
    const double before = ScaleOf(measured);
    Drawn drawn{{}, before / ScaleOf(values)};
    for (std::size_t k = 0; k < scored; ++k)
      drawn.shift.push_back((values[k] - measured[k]) / before);
    return drawn;
  }

  static double ScaleOf(const std::vector<double>& values) {
    const double scale = Objective::NormalisationScale(values);
    return scale == 0 ? 1 : scale;
  }

  const FitProblem& problem_;
  const SimulatedFit fit_;
  const double widening_;
};

/// The places of the best for `count` sets of drawn data, descended to from that for the measured
/// ones.
std::vector<Place> FittedToDrawn(const Resampling& resampling, int count, const Descent& from,
                                 UniformGenerator& random, Landscape& landscape) {
  std::vector<OtherData> drawn;
  for (int i = 0; i < count; ++i) drawn.push_back(resampling.Draw(random));
  std::vector<Descent> descents;
  for (const OtherData& data : drawn) descents.push_back(BeginWith(data, from));
  Descend(descents, kIterations, landscape);
  std::vector<Place> places;
  for (const Descent& descent : descents) places.push_back(descent.at);
  return places;
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
                             const std::function<bool()>& stopRequested, unsigned threads) {
  Intervals intervals;
  intervals.method = IntervalMethod::Bootstrap;
  intervals.of.resize(best.size());
  Landscape landscape(problem, std::numeric_limits<std::int32_t>::max(), stopRequested, threads);
  const int freedom = static_cast<int>(landscape.Scored() - landscape.Size());
  if (freedom <= 0) return intervals;
  const double widening = std::sqrt(static_cast<double>(landscape.Scored()) / freedom);
  const Resampling resampling(problem, best, widening);
  const Place from = landscape.PlaceOf({best.begin(), best.end()});
  const Descent atBest = BeginDescent(from, landscape);
  UniformGenerator random(seed);
  std::vector<std::vector<double>> components(best.size());
  while (intervals.replicates < replicates) {
    const int count = std::min(kSideBySide, replicates - intervals.replicates);
    const std::vector<Place> places = FittedToDrawn(resampling, count, atBest, random, landscape);
    if (landscape.Exhausted()) break;
    for (const Place& place : places)
      for (std::size_t j = 0; j < best.size(); ++j)
        components[j].push_back(place[static_cast<Eigen::Index>(j)]);
    intervals.replicates += count;
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
