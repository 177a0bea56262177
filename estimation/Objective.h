// The score of a candidate: the sum of squared errors between model and normalised data.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "estimation/FitProblem.h"
#include "estimation/UniformGenerator.h"
#include "kinetics/ModelCurves.h"
#include "kinetics/Runge_Kutta.h"

namespace velmora {

/// One value for each measured variable.
template <class Value>
struct PerVariable {
  Value Cx{};
  Value Cs{};
  Value Cp{};
};

/// Values at the measured points of one experiment; each series holds one value for each point.
using MeasuredSeries = PerVariable<std::vector<double>>;

/// Scores candidates against all experiments at once. All room is taken when the object is made; a
/// score allocates nothing. An arithmetic fault leaves a score as an `ArithmeticFault` with the
/// experiment's place.
class Objective {
 public:
  /// Copies and normalises the measured data. The problem's rows must be as many as its
  /// experiments.
  explicit Objective(const FitProblem& problem);

  /// The largest value, or 0 where every value is 0 or negative.
  static double NormalisationScale(std::span<const double> values);

  /// How many variables have no positive value. Each is scored with scale 1, and the user is told
  /// so once for each.
  int UnscaledVariables() const { return unscaledVariables_; }

  /// The score of candidate `x` (D values). A component outside its bounds is first redrawn inside
  /// them, so that the caller's vector changes.
  double EvaluateCandidate(std::span<double> x, UniformGenerator& random);

  /// As `EvaluateCandidate`, and counts the call.
  double CountedEvaluate(std::span<double> x, UniformGenerator& random);
  std::int32_t FunctionCalls() const { return functionCalls_; }
  void ResetFunctionCalls() { functionCalls_ = 0; }

  /// Simulates every experiment with `x` as it stands, without repair, and scores it.
  double Simulate(std::span<const double> x);

  /// What the last score came to for the experiment at `place` 1..count: each variable's part of
  /// the sum, its values at the measured times in g/L, and its curve.
  const PerVariable<double>& Share(int place) const { return At(place).share; }
  const MeasuredSeries& Simulated(int place) const { return At(place).simulated; }
  const ModelCurve& Curve(int place) const { return At(place).curve; }
  /// The curves of all experiments, by place.
  ModelCurves Curves() const;

  int ExperimentCount() const { return static_cast<int>(experiments_.size()); }
  /// The measured values, g/L.
  const MeasuredSeries& Measured(int place) const { return At(place).measured; }
  /// The count of measured values of the three variables at all points.
  int Observations() const;

 private:
  struct Scored {
    std::vector<double> time;
    MeasuredSeries measured;
    MeasuredSeries normalised;
    PerVariable<double> scale;
    KineticParameters parameters;
    ModelCurve curve;
    MeasuredSeries simulated;            // g/L
    MeasuredSeries simulatedNormalised;  // divided by scale
    PerVariable<double> share;
  };

  const Scored& At(int place) const { return experiments_.at(static_cast<std::size_t>(place - 1)); }
  double Scale(std::span<const double> values);
  void RepairBounds(std::span<double> x, UniformGenerator& random) const;
  /// Simulates one experiment and adds its squared errors to the accumulator.
  void ExperimentError(std::span<const double> x, Scored& experiment);
  static void InterpolateModelAtMeasurements(Scored& experiment);

  std::vector<Scored> experiments_;
  std::vector<FitVariable> variables_;
  Runge_Kutta integrator_;
  double error_ = 0;  // accumulates the squared errors of one score
  std::int32_t functionCalls_ = 0;
  int unscaledVariables_ = 0;
};

}  // namespace velmora
