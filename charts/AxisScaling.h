// How far a plot's axes reach, and where their ticks, grid lines and labels stand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/ExperimentLists.h"

namespace velmora {

/// The plots, in the order in which they are set up.
enum class PlotVariable { Cs, Cx, Cp };

/// Smallest and largest values of what the visible experiments hold: time in h, the rest in g/L.
struct Extents {
  double timeMin = 0, timeMax = 0;
  double CxMin = 0, CxMax = 0;
  double CsMin = 0, CsMax = 0;
  double CpMin = 0, CpMax = 0;
};

/// A range of time, h, both ends included.
struct TimeInterval {
  double from = 0;
  double to = 0;
};

/// The largest values among the visible experiments, at least 0; the minima are 0.
Extents MaxMin(const ExperimentLists& lists);

/// As `MaxMin` over the points inside `interval`, which becomes the range of time.
Extents MaxMinZoom(const ExperimentLists& lists, const TimeInterval& interval);

/// The time of the first and of the last point of all visible experiments.
TimeInterval MeasuredTimes(const ExperimentLists& lists);

/// The step between ticks for a range (maximum minus minimum) of the time axis or of a
/// concentration axis; 0 for a negative range.
double DivisorDeX(double range);
double DivisorDeY(double range);

/// `x` rounded half up to `decimals` places.
double Arredondamento(double x, int decimals);

struct PlotPoint {
  double x = 0;
  double y = 0;
};

struct PlotLine {
  PlotPoint from;
  PlotPoint to;
};

struct PlotLabel {
  PlotPoint at;  // of a time label: its tick, a little below the axis; else its upper left corner
  std::string text;
};

/// One plot in user coordinates: time in h to the right, concentration in g/L upwards. Axes run
/// from `origin` to Xmax and from 0 to Ymax.
struct PlotScale {
  double origin = 0, Xmax = 0, Ymax = 0;
  double stepX = 0, stepY = 0;
  double tickX = 0, tickY = 0;      // between the ticks below: the step, or 10, 100, ... of it
  PlotPoint upperLeft, lowerRight;  // corners of the paper
  PlotPoint titleAt;                // lower end of the title, which runs upwards
  PlotPoint timeTitleAt;            // upper left corner of "t (h)"
  std::vector<PlotLine> axes;
  std::vector<PlotLine> levels;  // grid lines, from the first tick behind 0 on
  std::vector<PlotLine> moments;
  std::vector<PlotLine> timeTicks;  // from 0 on, as the labels
  std::vector<PlotLine> concentrationTicks;
  std::vector<PlotLabel> timeLabels;
  std::vector<PlotLabel> concentrationLabels;
};

/// Sets up the plot of `variable`. Labels have the locale's `separator`. Of an axis that is more
/// than a thousand steps long only every tenth, hundredth, ... tick is kept, with its grid line and
/// label; how many have room is for the drawing to say.
PlotScale Escala(const Extents& extents, PlotVariable variable, char separator);

/// "Cs (g/L)", "Cx (g/L)" or "Cp (g/L)".
std::string PlotTitle(PlotVariable variable);

}  // namespace velmora
