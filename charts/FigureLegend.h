// A figure's legend: how large it is, and where it stands.
#pragma once

#include <cstddef>
#include <optional>

#include "charts/FigureLayout.h"

namespace velmora {

struct LegendSize {
  double width = 0, height = 0;
  std::size_t rows = 0;  // one for each named series that shows something; 0: there is no legend
};

/// By the canvas's letters; a name that is too long for the paper is shortened.
LegendSize SizeOfLegend(const Figure& figure, const PaperArea& paper, const ChartCanvas& canvas,
                        double unit);

/// The upper left corner of a legend that stands in a corner of the axes, or in the middle of a
/// side, and covers neither points nor curves.
std::optional<PaperPoint> FreeCorner(const Figure& figure, const FigureLayout& layout,
                                     const LegendSize& size);

LaidLegend LegendAt(const PaperPoint& upperLeft, const Figure& figure, const LegendSize& size,
                    const ChartCanvas& canvas, double unit);

/// Whether the series has a row.
bool IsListed(const FigureSeries& series);

}  // namespace velmora
