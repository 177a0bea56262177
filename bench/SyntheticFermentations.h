// Fermentations with known parameters, made from a number.
#pragma once

#include <vector>

#include "estimation/FitProblem.h"
#include "estimation/UniformGenerator.h"
#include "kinetics/Modelos.h"

namespace velmora {

struct SyntheticFermentation {
  const Model* model = nullptr;
  FitProblem problem;
  std::vector<double> truth;  // one for each variable
};

/// One of the 32 models with parameters, yields and conditions as fermentations have them, 1 to 9
/// cultivations (mostly up to 3) of 9 to 15 points, wide bounds and a random start inside them. The
/// measured values are the model's with normal noise of `noise` times the highest of their series,
/// cut at 0. The same number gives the same fermentation.
SyntheticFermentation MakeFermentation(int number, double noise);

/// The fermentation's values measured anew: `noise` times the highest of each series, or where
/// `proportional` times each value.
std::vector<Experiment> Measure(const std::vector<KineticParameters>& rows, int points,
                                double noise, bool proportional, UniformGenerator& random);

}  // namespace velmora
