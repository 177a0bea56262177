// What is fitted to what.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "data/Experiment.h"
#include "kinetics/KineticParameters.h"

namespace velmora {

/// One fitted parameter: the position 8..17 that it replaces in every experiment's vector, its
/// bounds, and the value from which the user starts.
struct FitVariable {
  At position = At::muMax;
  double lower = 0;
  double upper = 0;
  double start = 0;

  friend bool operator==(const FitVariable&, const FitVariable&) = default;
};

/// Measured experiments, the parameter vector of each, and the fitted parameters in table order.
/// `rows` is as long as `experiments`, at most 9; `variables` holds 1 to 10.
struct FitProblem {
  std::vector<Experiment> experiments;
  std::vector<KineticParameters> rows;
  std::vector<FitVariable> variables;
};

/// Whether every lower bound is finite and below its finite upper bound.
inline bool BoundsAreOrdered(std::span<const FitVariable> variables) {
  return std::all_of(variables.begin(), variables.end(), [](const FitVariable& v) {
    return std::isfinite(v.lower) && std::isfinite(v.upper) && v.lower < v.upper;
  });
}

}  // namespace velmora
