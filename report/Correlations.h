// Which fitted parameters the data tell only together.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "estimation/FitProblem.h"

namespace velmora {

/// The correlations of estimates, on the scale on which they were searched. Those at a bound are
/// left out; empty where the data do not determine the others.
struct Correlations {
  std::vector<At> parameters;
  std::vector<double> values;  // row by row, as many columns as there are parameters

  double Between(std::size_t row, std::size_t column) const {
    return values[row * parameters.size() + column];
  }
};

/// Of the linear theory (Bates and Watts 1988) at `best`, as long as the problem's variables.
Correlations CorrelationsAt(const FitProblem& problem, std::span<const double> best);

}  // namespace velmora
