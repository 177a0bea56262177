// Where everything of a figure stands on its paper.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/ChartCanvas.h"
#include "charts/ChartDrawing.h"
#include "charts/Figure.h"
#include "charts/FigureTicks.h"

namespace velmora {

/// An axis laid along a line of the paper.
struct LaidAxis {
  AxisTicks ticks;
  bool logarithmic = false;
  double first = 0, last = 0;  // where the axis begins and ends, in the canvas's units

  /// Not finite for a value that is not positive on a logarithmic axis.
  double ToPaper(double value) const;
  double FromPaper(double place) const;
};

struct LaidText {
  PaperPoint start;  // on the base line
  std::string text;
  bool upwards = false;
};

/// The legend's box and, for each named series, where its row's base line begins.
struct LaidLegend {
  PaperArea box;
  std::vector<LaidText> rows;
  double sample = 0;  // the length of the piece of a curve before each name
};

struct FigureLayout {
  double unit = 1;
  double letters = 0;       // the height of labels
  double titleLetters = 0;  // and of the title
  PaperArea frame;          // between the axes
  LaidAxis x, y;
  std::vector<LaidText> texts;  // the ticks' labels and the axes' titles
  std::vector<LaidText> title;  // its lines
  std::optional<LaidLegend> legend;

  PaperPoint At(const PlotPoint& point) const { return {x.ToPaper(point.x), y.ToPaper(point.y)}; }
  PlotPoint From(const PaperPoint& place) const {
    return {x.FromPaper(place.x), y.FromPaper(place.y)};
  }
};

/// Lays the figure out by the widths of the canvas's letters. Labels stand in the middle of their
/// ticks and never touch; the legend stands in a corner where no data are or, where there is none,
/// outside the axes.
FigureLayout LayOut(const Figure& figure, const PaperArea& paper, ChartCanvas& canvas,
                    const ChartStyle& style = {});

/// Draws the figure over a white ground; curves end at the axes' ends.
void DrawFigure(ChartCanvas& canvas, const PaperArea& paper, const Figure& figure,
                const ChartStyle& style = {});

}  // namespace velmora
