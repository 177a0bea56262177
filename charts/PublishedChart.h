// The charts of an experiment's course that are drawn to be published.
#pragma once

#include <optional>

#include "charts/Appearance.h"
#include "charts/ChartContent.h"
#include "charts/Figure.h"
#include "language/Texts.h"

namespace velmora {

enum class Palette : std::uint8_t { Stated, Published };

/// How a chart is looked at.
struct FigureView {
  Language language = Language::English;
  char separator = '.';
  Palette palette = Palette::Published;
  bool legend = true;
  bool logarithmic = false;          // the concentrations
  std::optional<ValueRange> times;   // h; all of them where there is none
  std::optional<ValueRange> values;  // of the upright axis
};

/// Measured points and curves over time. Experiments that are not visible are left out, with their
/// curves; a curve is smooth between the model's points.
Figure CourseFigure(const ChartContent& content, const FigureView& view);

/// What the measured values lie above the curves, over time. Values outside the curves' times, and
/// experiments without a curve, have none.
Figure ResidualFigure(const ChartContent& content, const FigureView& view);

/// The curves' values at the measured times over the measured ones.
Figure ParityFigure(const ChartContent& content, const FigureView& view);

/// `range` by `factor` as wide; what is `about` stays where it is.
ValueRange Widened(const ValueRange& range, double about, double factor, bool logarithmic);

/// How the plots of a window are drawn.
struct ChartLook {
  Language language = Language::English;
  char separator = '.';
  bool gridLines = true;
  bool published = false;  // as figures for publication
};

/// As `ContentOf`, with the figure where the charts are to be published.
ChartContent ContentOf(PlotVariable variable, const ExperimentLists& lists,
                       const ModelCurves& curves, const ChartLook& look);

}  // namespace velmora
