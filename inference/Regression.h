// Regressions of measured changes: yields, production, death.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "data/Experiment.h"

namespace velmora {

/// Changes since the first sample of each experiment: one element for each later sample of any, but
/// for those behind an experiment's highest Cx where its cells fall.
struct Changes {
  std::vector<double> cells;      // formed, g/L
  std::vector<double> substrate;  // used, g/L
  std::vector<double> product;    // formed, g/L
  std::vector<double> cellHours;  // the integral of Cx over time, g h/L

  int Samples() const { return static_cast<int>(cells.size()); }
};
Changes ChangesOf(std::span<const Experiment> experiments);

/// A least-squares line through the origin, with the standard error of its slope.
struct Line {
  double slope = 0;
  double error = 0;
};

/// Of y over x, which are equally long; a slope of 0 where it would be negative or has no value.
Line LineThroughOrigin(const std::vector<double>& x, const std::vector<double>& y);

/// Production by growth and by cells: product = alpha cells + beta cellHours (Luedeking and Piret
/// 1959).
struct ProductionLaw {
  double alpha = 0;  // g/g
  double beta = 0;   // g/(g h)
};

/// The law by least squares; where one of its constants would be negative, with alpha alone.
ProductionLaw LuedekingPiret(const Changes& changes);

/// How cells die behind their highest value.
struct Death {
  double rate = 0;       // the mean slope of -ln Cx, 1/h
  double substrate = 0;  // the highest Cs of a first sample with fewer cells, g/L
  int experiments = 0;   // in which they do
};
/// Nothing where the cells fall in no experiment.
std::optional<Death> DeathOf(std::span<const Experiment> experiments);

}  // namespace velmora
