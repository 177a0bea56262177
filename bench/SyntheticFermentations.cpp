#include "bench/SyntheticFermentations.h"

#include <algorithm>
#include <cmath>

#include "kinetics/Runge_Kutta.h"

namespace velmora {
namespace {

double LogUniform(UniformGenerator& random, double least, double most) {
  return std::exp(std::log(least) + random.Draw() * (std::log(most) - std::log(least)));
}

double Between(UniformGenerator& random, double least, double most) {
  return least + random.Draw() * (most - least);
}

/// Where a parameter's true values lie, and the wide bounds in which it is looked for.
struct Range {
  double least, most;
  double lower, upper;
};

Range RangeOf(At position, const Model& model) {
  switch (position) {
    case At::muMax:
      return {0.15, 0.6, 0.01, 2};
    case At::Ks:
      return model.substrate == SubstrateTerm::Contois ? Range{0.2, 5, 0.01, 100}
                                                       : Range{0.5, 20, 0.01, 200};
    case At::Kis:
      return {30, 300, 1, 2000};
    case At::Kip:
      return model.product == ProductTerm::Aiba ? Range{0.01, 0.06, 0.0005, 1}
                                                : Range{10, 80, 0.5, 1000};
    case At::CxAst:
      return {15, 50, 5, 200};
    case At::CpAst:
      return {30, 90, 10, 300};
    case At::m:
    case At::n:
      return {0.4, 2, 0.05, 5};
    case At::u:
      return {0.7, 2, 0.3, 4};
    default:
      return {0.5, 2.5, 0.1, 5};
  }
}

/// The model's values at `points` times from 0 to the last, each with the noise that `spread` gives
/// for a value and the highest of its series.
template <class Spread>
Experiment Measured(const KineticParameters& row, int points, Spread spread,
                    UniformGenerator& random) {
  ModelCurve curve;
  Runge_Kutta().Integrate(row, curve);
  const double last = static_cast<double>(curve.time.size()) - 1;
  const auto noisy = [&](const ModelCurve::Series& y, double at) {
    const auto i = static_cast<std::size_t>(std::min(at, last - 1));
    const double value = y[i] + (at - static_cast<double>(i)) * (y[i + 1] - y[i]);
    const double highest = *std::max_element(y.begin(), y.end());
    return std::max(0.0, value + spread(value, highest) * random.GaussianRandom());
  };
  Experiment experiment;
  for (int k = 0; k < points; ++k) {
    const double at = last * k / (points - 1);
    experiment.time.push_back(row[At::T] * at / last);
    experiment.Cx.push_back(noisy(curve.Cx, at));
    experiment.Cs.push_back(noisy(curve.Cs, at));
    experiment.Cp.push_back(noisy(curve.Cp, at));
  }
  return experiment;
}

}  // namespace

SyntheticFermentation MakeFermentation(int number, double noise) {
  UniformGenerator random(10'000 + number);
  // Neighbouring seeds begin alike.
  for (int i = 0; i < 20; ++i) random.Draw();
  SyntheticFermentation made;
  made.model = &kModels[static_cast<std::size_t>(random.DrawIndex(kModels.size()) - 1)];
  const int count = random.Draw() < 0.7 ? random.DrawIndex(3) : random.DrawIndex(9);

  KineticParameters row;
  row[At::Yxs] = Between(random, 0.08, 0.5), row[At::Yps] = 1;
  row[At::alpha] = Between(random, 0.5, 4);
  SetModelSwitches(*made.model, row);
  for (const Parameter& parameter : kFittable) {
    if (!Uses(*made.model, parameter.position)) continue;
    const auto [least, most, lower, upper] = RangeOf(parameter.position, *made.model);
    made.truth.push_back(LogUniform(random, least, most));
    made.problem.variables.push_back(
        {parameter.position, lower, upper, LogUniform(random, lower, upper)});
    row[parameter.position] = made.truth.back();
  }
  for (int e = 0; e < count; ++e) {
    row[At::Cx0] = LogUniform(random, 0.1, 2), row[At::Cs0] = Between(random, 15, 120);
    row[At::Cp0] = random.Draw() < 0.5 ? 0 : random.Draw();
    row[At::T] = Between(random, 12, 48);
    made.problem.rows.push_back(row);
    const int points = 8 + random.DrawIndex(7);
    made.problem.experiments.push_back(Measure({row}, points, noise, false, random).front());
  }
  return made;
}

std::vector<Experiment> Measure(const std::vector<KineticParameters>& rows, int points,
                                double noise, bool proportional, UniformGenerator& random) {
  std::vector<Experiment> experiments;
  for (const KineticParameters& row : rows)
    experiments.push_back(Measured(
        row, points,
        [&](double value, double highest) { return noise * (proportional ? value : highest); },
        random));
  return experiments;
}

}  // namespace velmora
