// The tables that the integrator fills: up to 100 points of time, Cx, Cs and Cp for each
// experiment.
#pragma once

#include <array>
#include <cstddef>

#include "kinetics/KineticParameters.h"

namespace velmora {

inline constexpr int kModelPoints = 100;

/// One experiment's curve: time in h, concentrations in g/L; element i is point i + 1. The elements
/// behind the last point mean nothing.
struct ModelCurve {
  using Series = std::array<double, static_cast<std::size_t>(kModelPoints)>;
  Series time{};
  Series Cx{};
  Series Cs{};
  Series Cp{};
  int points = 0;                  // computed; 0: there is no curve, below 100: a fault ended it
  KineticParameters parameters{};  // from which it was simulated

  friend bool operator==(const ModelCurve&, const ModelCurve&) = default;
};

/// The curves of the experiments at places 1..9; element e is place e + 1.
using ModelCurves = std::array<ModelCurve, 9>;

}  // namespace velmora
