// The one drawing of all charts: on the screen, in a picture, on paper, in the report.
#pragma once

#include <cstdint>

#include "charts/ChartCanvas.h"
#include "charts/ChartContent.h"
#include "charts/PaperPlaces.h"

namespace velmora {

enum class PointStyle : std::uint8_t { Dots, Markers };

struct ChartStyle {
  PointStyle points = PointStyle::Dots;
  double unit = 1;        // the width of a thin line, in the canvas's units
  double fontHeight = 0;  // of labels, in units; 0 for one that suits the paper
};

/// Draws the chart on `paper`, over a white ground. Curves and points outside the paper are cut
/// off.
void DrawChart(ChartCanvas& canvas, const PaperArea& paper, const ChartContent& content,
               const ChartStyle& style = {});

}  // namespace velmora
