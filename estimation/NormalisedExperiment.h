// A measured experiment as candidates are scored against it.
#pragma once

#include <vector>

#include "kinetics/KineticParameters.h"

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

struct NormalisedExperiment {
  std::vector<double> time;   // h
  MeasuredSeries normalised;  // measured values over their scales
  PerVariable<double> scale;  // g/L
  KineticParameters parameters;
};

}  // namespace velmora
