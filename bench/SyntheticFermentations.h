// Fitting problems with a known answer, made from a number.
#pragma once

#include <vector>

#include "estimation/FitProblem.h"
#include "kinetics/Modelos.h"

namespace velmora {

struct SyntheticFermentation {
  const Model* model = nullptr;
  FitProblem problem;
  std::vector<double> truth;  // one for each variable
};

/// One of the 32 models with parameters, yields and conditions as fermentations have them, 1 to 9
/// cultivations (mostly up to 3) of 9 to 15 points with normal noise of `noise` times the highest
/// value of each series, all parameters fitted in wide bounds from a random start. The same number
/// gives the same fermentation.
SyntheticFermentation MakeFermentation(int number, double noise);

}  // namespace velmora
