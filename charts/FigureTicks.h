// Where the ticks of a figure's axis stand, and what is written beside them.
#pragma once

#include <string>
#include <vector>

#include "charts/Figure.h"

namespace velmora {

struct Tick {
  double at = 0;
  std::string text;  // empty for a small tick between two that are labelled
};

/// An axis with its ends and its ticks, in ascending order.
struct AxisTicks {
  ValueRange range;
  std::vector<Tick> ticks;
};

/// At most `most` (at least 2) labelled ticks at round distances, 1, 2 or 5 times a power of ten,
/// with as many decimals as these need. An axis that need not end where its data do ends at ticks.
/// One whose data are a single value has that value for its only tick. A logarithmic axis has its
/// labels at powers of ten, or at 1, 2 and 5 times these; where it spans less, at round distances.
AxisTicks TicksOf(const FigureAxis& axis, int most, char separator);

}  // namespace velmora
