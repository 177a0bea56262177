// What one plot shows, as a value, with its legend and the range of time that it is cut to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "charts/AxisScaling.h"
#include "charts/Figure.h"
#include "data/ExperimentLists.h"
#include "kinetics/ModelCurves.h"
#include "language/Message.h"

namespace velmora {

/// One experiment on one plot.
struct PlottedExperiment {
  std::int16_t number = 0;  // of the experiment
  std::string description;  // UTF-8
  bool visible = true;
  std::string marker;
  std::int32_t colour = 1;
  std::int16_t line = 1;          // style of its curve
  std::vector<PlotPoint> points;  // measured, in the interval; empty where it is not visible
  std::vector<PlotPoint> curve;   // the model's points, cut to the interval; or none
};

struct ChartContent {
  PlotVariable variable = PlotVariable::Cs;
  PlotScale scale;
  bool gridLines = true;
  char separator = '.';                        // of the decimals
  std::vector<PlottedExperiment> experiments;  // by place
  std::string title;                           // above the plot, UTF-8; empty for none
  std::optional<Figure> figure;                // drawn in place of the plot; or none
};

/// The plot of `variable`. `curves` is null where there are none; they are drawn for the first nine
/// experiments, hidden ones too. With an `interval` only what lies in it is shown.
ChartContent ContentOf(PlotVariable variable, const ExperimentLists& lists,
                       const ModelCurves* curves, bool gridLines, char separator,
                       const std::optional<TimeInterval>& interval = std::nullopt);

/// The curve's values of `variable`, g/L.
const ModelCurve::Series& SeriesOf(const ModelCurve& curve, PlotVariable variable);

/// The part of a curve inside the interval, up to its very ends: an interval may be shorter than
/// the distance of two points.
std::vector<PlotPoint> Cut(const std::vector<PlotPoint>& curve, const TimeInterval& interval);

/// Whether the chart has axes to draw: something is visible on it, and no bound is beyond a double.
bool CanBeSized(const ChartContent& content);

/// Which marker and colour belong to an experiment.
struct LegendRow {
  std::int16_t number = 0;
  std::string marker;
  std::int32_t colour = 1;
  std::optional<Ink> ink{};  // in place of the colour's
};

/// One row for each visible experiment, in list order.
std::vector<LegendRow> LegendRows(const ExperimentLists& lists);

/// What the two boxes state, h; nothing where a box holds no number.
struct TypedInterval {
  std::optional<double> from;
  std::optional<double> to;
};

enum class IntervalBox : std::uint8_t { Minimum, Maximum };

struct CheckedInterval {
  TimeInterval interval;           // valid where nothing is refused
  std::optional<Message> refusal;  // what to tell the user
  IntervalBox failed = IntervalBox::Minimum;
};

/// The range must lie within `measured` and may be a single moment. Checked in this order: a box
/// without a number, the maximum too large, the minimum too small, the minimum above the maximum.
CheckedInterval CheckInterval(const TypedInterval& typed, const TimeInterval& measured);

}  // namespace velmora
