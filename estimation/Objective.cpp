#include "estimation/Objective.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {
namespace {

double Square(double value) {
  return value * value;
}

std::vector<double> Divided(const std::vector<double>& values, double scale) {
  std::vector<double> quotients(values.size());
  std::transform(values.begin(), values.end(), quotients.begin(),
                 [scale](double value) { return value / scale; });
  return quotients;
}

MeasuredSeries SeriesOf(std::size_t points) {
  const std::vector<double> empty(points);
  return {empty, empty, empty};
}

/// The straight line between two neighbouring model points, at one measured time.
class Interpolation {
 public:
  Interpolation(const ModelCurve& curve, std::size_t upper, double time)
      : lower_(upper - 1), upper_(upper), since_(time - curve.time[lower_]) {
    width_ = curve.time[upper_] - curve.time[lower_];
    if (width_ == 0) throw ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::Interpolation};
  }

  double Of(const ModelCurve::Series& y) const {
    return since_ * (y[upper_] - y[lower_]) / width_ + y[lower_];
  }

 private:
  std::size_t lower_;
  std::size_t upper_;
  double since_;
  double width_;
};

}  // namespace

double Objective::NormalisationScale(std::span<const double> values) {
  double scale = 0;
  for (const double value : values)
    if (value >= scale) scale = value;
  return scale;
}

double Objective::Scale(std::span<const double> values) {
  const double scale = NormalisationScale(values);
  if (scale != 0) return scale;
  ++unscaledVariables_;
  return 1;
}

Objective::Objective(const FitProblem& problem) : variables_(problem.variables) {
  experiments_.resize(problem.experiments.size());
  for (std::size_t e = 0; e < experiments_.size(); ++e) {
    const Experiment& record = problem.experiments[e];
    Scored& experiment = experiments_[e];
    experiment.time = record.time;
    experiment.measured = {record.Cx, record.Cs, record.Cp};
    experiment.scale.Cx = Scale(record.Cx);
    experiment.scale.Cs = Scale(record.Cs);
    experiment.scale.Cp = Scale(record.Cp);
    experiment.normalised = {Divided(record.Cx, experiment.scale.Cx),
                             Divided(record.Cs, experiment.scale.Cs),
                             Divided(record.Cp, experiment.scale.Cp)};
    experiment.parameters = problem.rows.at(e);
    experiment.simulated = SeriesOf(experiment.time.size());
    experiment.simulatedNormalised = experiment.simulated;
  }
}

ModelCurves Objective::Curves() const {
  ModelCurves curves{};
  for (std::size_t i = 0; i < experiments_.size(); ++i) curves.at(i) = experiments_[i].curve;
  return curves;
}

int Objective::Observations() const {
  std::size_t values = 0;
  for (const Scored& experiment : experiments_) values += 3 * experiment.time.size();
  return static_cast<int>(values);
}

double Objective::EvaluateCandidate(std::span<double> x, UniformGenerator& random) {
  RepairBounds(x, random);
  return Simulate(x);
}

double Objective::CountedEvaluate(std::span<double> x, UniformGenerator& random) {
  if (functionCalls_ == std::numeric_limits<std::int32_t>::max())
    throw ArithmeticFault{FaultKind::Overflow, FaultTerm::EvaluationCounter};
  ++functionCalls_;
  return EvaluateCandidate(x, random);
}

void Objective::RepairBounds(std::span<double> x, UniformGenerator& random) const {
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto& [position, lower, upper, start] = variables_[i];
    if (x[i] < lower || x[i] > upper) x[i] = lower + random.Draw() * (upper - lower);
  }
}

double Objective::Simulate(std::span<const double> x) {
  error_ = 0;
  for (std::size_t e = 0; e < experiments_.size(); ++e) {
    try {
      ExperimentError(x, experiments_[e]);
      if (!std::isfinite(error_)) throw ArithmeticFault{FaultKind::Overflow, FaultTerm::Score};
    } catch (ArithmeticFault& fault) {
      fault.place = static_cast<int>(e) + 1;
      throw;
    }
  }
  return error_;
}

void Objective::ExperimentError(std::span<const double> x, Scored& experiment) {
  for (std::size_t i = 0; i < x.size(); ++i) experiment.parameters[variables_[i].position] = x[i];
  integrator_.Integrate(experiment.parameters, experiment.curve);
  InterpolateModelAtMeasurements(experiment);

  const MeasuredSeries& measured = experiment.normalised;
  const MeasuredSeries& model = experiment.simulatedNormalised;
  experiment.share = {};
  // The last measured point is left out of the sum; it is simulated and reported all the same.
  for (std::size_t k = 0; k + 1 < experiment.time.size(); ++k) {
    const double Cx = Square(measured.Cx[k] - model.Cx[k]);
    const double Cs = Square(measured.Cs[k] - model.Cs[k]);
    const double Cp = Square(measured.Cp[k] - model.Cp[k]);
    experiment.share.Cx += Cx;
    experiment.share.Cs += Cs;
    experiment.share.Cp += Cp;
    error_ += Cx + Cs + Cp;
  }
}

void Objective::InterpolateModelAtMeasurements(Scored& experiment) {
  const ModelCurve::Series& grid = experiment.curve.time;
  const std::size_t last = grid.size() - 1;
  std::size_t upper = 1;
  for (std::size_t k = 0; k < experiment.time.size(); ++k) {
    const double time = experiment.time[k];
    // The first model point not before the measured time; where the times ascend it is at or beyond
    // that of the point before. Outside the curve its first or last segment is carried on.
    if (k > 0 && time < experiment.time[k - 1]) upper = 1;
    while (upper < last && grid[upper] < time) ++upper;
    const Interpolation at(experiment.curve, upper, time);
    experiment.simulated.Cx[k] = at.Of(experiment.curve.Cx);
    experiment.simulated.Cs[k] = at.Of(experiment.curve.Cs);
    experiment.simulated.Cp[k] = at.Of(experiment.curve.Cp);
    experiment.simulatedNormalised.Cx[k] = experiment.simulated.Cx[k] / experiment.scale.Cx;
    experiment.simulatedNormalised.Cs[k] = experiment.simulated.Cs[k] / experiment.scale.Cs;
    experiment.simulatedNormalised.Cp[k] = experiment.simulated.Cp[k] / experiment.scale.Cp;
  }
}

}  // namespace velmora
