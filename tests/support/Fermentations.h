// Synthetic fermentations with values as a fermentation has them, for any model, from a seed.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "estimation/FitProblem.h"
#include "kinetics/Modelos.h"
#include "kinetics/Runge_Kutta.h"

namespace velmora::test {

/// Random numbers that are the same on every machine.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}

  double Uniform(double from, double to) {
    return from + (to - from) * std::ldexp(static_cast<double>(engine_() >> 11), -53);
  }
  double LogUniform(double from, double to) {
    return std::exp(Uniform(std::log(from), std::log(to)));
  }
  /// Standard normal, by Box and Muller (1958).
  double Normal() {
    return std::sqrt(-2 * std::log(1 - Uniform(0, 1))) * std::cos(Uniform(0, 6.283185307179586));
  }

 private:
  std::mt19937_64 engine_;
};

/// Kinetic parameters of a batch with growth-associated product and global yields; `model` is
/// without inhibition by what lies far beyond the highest concentrations that Cs0 allows.
inline KineticParameters FermentationOf(const Model& model, Dice& dice) {
  KineticParameters p;
  p[At::Cx0] = dice.LogUniform(0.1, 2), p[At::Cs0] = dice.LogUniform(20, 120);
  p[At::Cp0] = dice.Uniform(0, 1);
  p[At::Yxs] = dice.LogUniform(0.05, 0.5), p[At::Yps] = 1, p[At::Fp] = 0;
  p[At::alpha] = dice.Uniform(0.1, 0.48) / p[At::Yxs];
  const double cells = p[At::Yxs] * p[At::Cs0], product = p[At::alpha] * cells;
  p[At::muMax] = dice.LogUniform(0.05, 0.8);
  p[At::Ks] = dice.LogUniform(0.1, 20);
  if (model.substrate == SubstrateTerm::Contois) p[At::Ks] = dice.LogUniform(0.05, 5);
  p[At::u] = dice.Uniform(0.5, 2.5);
  if (model.substrate == SubstrateTerm::Moser) p[At::Ks] = std::pow(p[At::Ks], p[At::u]);
  p[At::Kis] = dice.LogUniform(10, 300), p[At::v] = dice.Uniform(0.5, 3);
  p[At::Kip] = dice.LogUniform(0.1, 10) * product;
  if (model.product == ProductTerm::Aiba) p[At::Kip] = dice.LogUniform(0.1, 3) / product;
  p[At::CpAst] = p[At::Cp0] + dice.Uniform(0.6, 3) * product, p[At::n] = dice.Uniform(0.3, 3);
  p[At::CxAst] = p[At::Cx0] + dice.Uniform(0.6, 3) * cells, p[At::m] = dice.Uniform(0.3, 3);
  SetModelSwitches(model, p);
  return p;
}

/// The time by which 95 % of what will grow has grown, h.
inline double GrowthTime(KineticParameters p) {
  ModelCurve curve;
  p[At::T] = 400;
  Runge_Kutta().Integrate(p, curve);
  const double end = curve.Cx.front() + 0.95 * (curve.Cx.back() - curve.Cx.front());
  const auto at =
      std::find_if(curve.Cx.begin(), curve.Cx.end(), [=](double Cx) { return Cx >= end; });
  return curve.time[static_cast<std::size_t>(at - curve.Cx.begin())];
}

enum class Noise : std::uint8_t {
  Even,          // with the variable's largest value; a measurement below 0 becomes 0
  Proportional,  // with each value; the same
  Uncut,         // as Even, below 0 as it falls: what least squares assume
};

/// Measures a batch `points` times at even intervals, with normal noise of the standard deviation
/// `noise` times the largest value, or as `kind` says.
inline Experiment Measured(const KineticParameters& row, int points, double noise, Dice& dice,
                           Noise kind = Noise::Even) {
  ModelCurve curve;
  Runge_Kutta().Integrate(row, curve);
  Experiment experiment;
  experiment.finalTime = curve.time.back();
  const auto measure = [&](const ModelCurve::Series& series, std::vector<double>& values) {
    const double largest = *std::max_element(series.begin(), series.end());
    for (int k = 0; k < points; ++k) {
      const auto i = static_cast<std::size_t>(std::lround(99.0 * k / (points - 1)));
      const double spread = noise * (kind == Noise::Proportional ? series[i] : largest);
      const double measured = series[i] + spread * dice.Normal();
      values.push_back(kind == Noise::Uncut ? measured : std::max(0.0, measured));
    }
  };
  for (int k = 0; k < points; ++k)
    experiment.time.push_back(
        curve.time[static_cast<std::size_t>(std::lround(99.0 * k / (points - 1)))]);
  measure(curve.Cx, experiment.Cx);
  measure(curve.Cs, experiment.Cs);
  measure(curve.Cp, experiment.Cp);
  return experiment;
}

/// One to three batches of `model`, which stands in the catalogue, that differ in Cs0, 9 to 15
/// points each. The true parameters stand in the rows.
inline FitProblem Fermentations(const Model& model, unsigned seed, double noise) {
  Dice dice(seed * static_cast<unsigned>(kModels.size()) +
            static_cast<unsigned>(&model - kModels.data()));
  FitProblem problem;
  KineticParameters row = FermentationOf(model, dice);
  row[At::T] = std::min(100.0, GrowthTime(row) * dice.Uniform(0.9, 1.5));
  const int points = static_cast<int>(dice.Uniform(9, 16));
  const int batches = static_cast<int>(dice.Uniform(1, 4));
  for (int batch = 0; batch < batches; ++batch) {
    problem.rows.push_back(row);
    problem.experiments.push_back(Measured(row, points, noise, dice));
    row[At::Cs0] *= 0.6;
  }
  return problem;
}

}  // namespace velmora::test
