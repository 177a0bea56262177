// A legend as one row, below a chart.
#pragma once

#include <vector>

#include "charts/ChartCanvas.h"
#include "charts/ChartContent.h"

namespace velmora {

/// A marker in its ink and the experiment's number, side by side in the middle of the strip; all of
/// it smaller where the strip is too short. `unit` is the width of a thin line.
void DrawLegendStrip(ChartCanvas& canvas, const PaperArea& strip,
                     const std::vector<LegendRow>& rows, double unit);

}  // namespace velmora
