// What a chart shows that is drawn to be published, as a value: series over any two axes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/AxisScaling.h"
#include "charts/ChartCanvas.h"

namespace velmora {

/// From the least to the largest of what is shown.
struct ValueRange {
  double from = 0;
  double to = 0;

  friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

struct FigureAxis {
  std::string title;         // with its unit
  ValueRange range;          // of the data; positive where the axis is logarithmic
  bool exact = false;        // ends at the range itself, not at the ticks around it
  bool logarithmic = false;  // values that are not positive have no place on it
  bool exactBelow = false;   // begins at the range itself
};

/// Points, a curve, or both, as one row of the legend.
struct FigureSeries {
  std::string name;  // UTF-8
  Ink ink;           // of the points
  Ink curveInk;
  std::string marker;
  LineKind line = LineKind::Solid;
  std::vector<PlotPoint> points;
  std::vector<PlotPoint> curve;
};

/// A thin line that helps to read the others: where residuals are 0, where model and data agree.
struct FigureGuide {
  PlotPoint from, to;
  LineKind line = LineKind::Dashed;
};

struct Figure {
  std::string title;  // UTF-8; empty for none
  FigureAxis x, y;
  std::vector<FigureSeries> series;
  std::vector<FigureGuide> guides;
  bool gridLines = false;
  bool legend = true;
  bool legendOutside = false;  // of the axes, even where a corner is free
  char separator = '.';        // of the decimals
};

}  // namespace velmora
