// Where the points of a plot stand on paper.
#pragma once

#include <optional>

#include "charts/AxisScaling.h"
#include "charts/ChartCanvas.h"

namespace velmora {

/// Whether the axes have a length. One without (no product was formed) is drawn as if it had the
/// length 1, so that the other one stands at its usual place, in sight.
inline bool HasWidth(const PlotScale& scale) {
  return scale.Xmax > scale.origin;
}
inline bool HasHeight(const PlotScale& scale) {
  return scale.Ymax > 0;
}

/// Where a point in user coordinates stands on `paper`, and which point stands there.
PaperPoint ToPaper(const PlotScale& scale, const PaperArea& paper, const PlotPoint& point);
PlotPoint FromPaper(const PlotScale& scale, const PaperArea& paper, const PaperPoint& position);

/// The part of `line` inside `frame`: a line that ends far outside would overflow a canvas's own
/// arithmetic. Nothing where there is none.
std::optional<PaperLine> Cut(const PaperLine& line, const PaperArea& frame);

}  // namespace velmora
