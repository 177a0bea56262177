#include "bench/SyntheticFermentations.h"

#include <algorithm>

#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

constexpr double kFewCultivations = 0.7;  // probability of 1 to 3 cultivations instead of 1 to 9

struct Bounds {
  double lower, upper;
};

/// Bounds that hold a parameter's true values with much room on both sides.
Bounds WideBounds(At position, const Model& model) {
  switch (position) {
    case At::muMax:
      return {0.01, 2};
    case At::Ks:
      return model.substrate == SubstrateTerm::Moser ? Bounds{0.01, 5000} : Bounds{0.01, 200};
    case At::Kis:
      return {1, 2000};
    case At::Kip:
      return model.product == ProductTerm::Aiba ? Bounds{0.0005, 10} : Bounds{0.1, 2000};
    case At::CxAst:
    case At::CpAst:
      return {0.5, 500};
    case At::u:
      return {0.3, 4};
    default:
      return {0.05, 5};
  }
}

}  // namespace

SyntheticFermentation MakeFermentation(int number, double noise) {
  test::Dice dice(static_cast<unsigned>(number));
  const auto index = [&dice](std::size_t count) {
    return static_cast<std::size_t>(dice.Uniform(0, static_cast<double>(count)));
  };
  SyntheticFermentation made;
  made.model = &kModels[index(kModels.size())];
  KineticParameters row = test::FermentationOf(*made.model, dice);
  for (const Parameter& parameter : kFittable) {
    if (!Uses(*made.model, parameter.position)) continue;
    const auto [lower, upper] = WideBounds(parameter.position, *made.model);
    made.truth.push_back(row[parameter.position]);
    made.problem.variables.push_back(
        {parameter.position, lower, upper, dice.LogUniform(lower, upper)});
  }
  const std::size_t count = 1 + index(dice.Uniform(0, 1) < kFewCultivations ? 3 : 9);
  const double highestCs0 = row[At::Cs0];
  for (std::size_t e = 0; e < count; ++e) {
    row[At::T] = std::min(100.0, test::GrowthTime(row) * dice.Uniform(0.9, 1.5));
    made.problem.rows.push_back(row);
    made.problem.experiments.push_back(
        test::Measured(row, 9 + static_cast<int>(index(7)), noise, dice));
    row[At::Cx0] = dice.LogUniform(0.1, 2);
    row[At::Cs0] = dice.Uniform(0.2, 1) * highestCs0;
  }
  return made;
}

}  // namespace velmora
