// Computed curves as a table of text.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "kinetics/ModelCurves.h"

namespace velmora::cli {

/// The curve of the experiment at `place`, with as many points as are wanted.
struct PlacedCurve {
  int place;
  int number;
  std::vector<double> time;  // h
  std::vector<double> Cx;    // g/L
  std::vector<double> Cs;
  std::vector<double> Cp;
};

/// The computed points of a curve; where `points` is not 0, as many at equal distances in time, on
/// the straight lines between those computed, on which a fit compares them with the measured ones.
PlacedCurve CurveAt(int place, int number, const ModelCurve& curve, int points);

/// A header line and one line for each point, every number the shortest that reads back as the
/// same: a table as `import` reads it. `separator` stands between the cells.
std::string TableOf(std::span<const PlacedCurve> curves, char separator);

}  // namespace velmora::cli
