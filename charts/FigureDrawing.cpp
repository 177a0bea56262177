#include <algorithm>
#include <cmath>

#include "charts/FigureLayout.h"
#include "charts/FigureLegend.h"
#include "charts/PaperPlaces.h"

namespace velmora {
namespace {

constexpr Ink kBlack{0, 0, 0};
constexpr Ink kGrey{0xD8, 0xD8, 0xD8};

// Sizes in units.
constexpr double kMarkerWidth = 9;
constexpr double kMarkerLine = 1.3;
constexpr double kCurveWidth = 1.6;
constexpr double kTick = 4, kSmallTick = 2.5;
constexpr double kSamePoint = 0.5;  // a point nearer to the one before adds nothing
constexpr double kBeyond = 1;       // how far what is drawn may lie outside the axes

class Drawing {
 public:
  Drawing(ChartCanvas& canvas, const Figure& figure, const FigureLayout& layout)
      : canvas_(canvas), figure_(figure), layout_(layout) {}

  void Draw() {
    if (figure_.gridLines) DrawGrid();
    for (const FigureGuide& guide : figure_.guides)
      DrawCurve({guide.from, guide.to}, {kBlack, Units(0.8), guide.line});
    for (const FigureSeries& series : figure_.series)
      DrawCurve(series.curve, {series.curveInk, Units(kCurveWidth), series.line});
    DrawAxes();
    for (const FigureSeries& series : figure_.series) DrawPoints(series);
    if (layout_.legend) DrawLegend(*layout_.legend);
    Write(layout_.texts);
    canvas_.SetTitleFontHeight(layout_.titleLetters);
    Write(layout_.title);
  }

 private:
  double Units(double count) const { return count * layout_.unit; }

  void DrawGrid() {
    const PaperArea& frame = layout_.frame;
    std::vector<PaperLine> lines;
    for (const auto& [at, text] : layout_.x.ticks.ticks)
      if (const double x = layout_.x.ToPaper(at); !text.empty() && x > frame.left + Units(1))
        lines.push_back({{x, frame.Bottom()}, {x, frame.top}});
    for (const auto& [at, text] : layout_.y.ticks.ticks)
      if (const double y = layout_.y.ToPaper(at); !text.empty() && y < frame.Bottom() - Units(1))
        lines.push_back({{frame.left, y}, {frame.Right(), y}});
    canvas_.DrawLines(lines, {kGrey, Units(0.8), LineKind::Solid});
  }

  /// Ticks stand outside, where no data are.
  void DrawAxes() {
    const PaperArea& frame = layout_.frame;
    std::vector<PaperLine> lines{{{frame.left, frame.Bottom()}, {frame.Right(), frame.Bottom()}},
                                 {{frame.left, frame.Bottom()}, {frame.left, frame.top}}};
    for (const auto& [at, text] : layout_.x.ticks.ticks) {
      const double x = layout_.x.ToPaper(at);
      lines.push_back({{x, frame.Bottom()}, {x, frame.Bottom() + Length(text)}});
    }
    for (const auto& [at, text] : layout_.y.ticks.ticks) {
      const double y = layout_.y.ToPaper(at);
      lines.push_back({{frame.left - Length(text), y}, {frame.left, y}});
    }
    canvas_.DrawLines(lines, {kBlack, Units(1), LineKind::Solid});
  }

  double Length(const std::string& text) const { return Units(text.empty() ? kSmallTick : kTick); }

  /// One line through all points between two places where the curve leaves the axes.
  void DrawCurve(const std::vector<PlotPoint>& curve, const Stroke& stroke) {
    const PaperArea room = layout_.frame.Grown(Units(kBeyond));
    std::vector<PaperPoint> piece;
    for (std::size_t k = 1; k < curve.size(); ++k) {
      const auto segment = Cut({layout_.At(curve[k - 1]), layout_.At(curve[k])}, room);
      if (!segment) continue;
      if (piece.empty() || piece.back() != segment->from) {
        canvas_.DrawCurve(piece, stroke);
        piece = {segment->from};
      }
      piece.push_back(segment->to);
    }
    canvas_.DrawCurve(piece, stroke);
  }

  void DrawPoints(const FigureSeries& series) {
    const PaperArea room = layout_.frame.Grown(Units(kBeyond));
    std::vector<PaperPoint> centres;
    for (const PlotPoint& point : series.points) {
      const PaperPoint at = layout_.At(point);
      const bool same = !centres.empty() && std::hypot(at.x - centres.back().x,
                                                       at.y - centres.back().y) < Units(kSamePoint);
      if (room.Contains(at) && !same) centres.push_back(at);
    }
    DrawMarkers(series, centres);
  }

  void DrawMarkers(const FigureSeries& series, const std::vector<PaperPoint>& centres) {
    canvas_.DrawMarkers(series.marker, centres, Units(kMarkerWidth), series.ink,
                        Units(kMarkerLine));
  }

  void DrawLegend(const LaidLegend& legend) {
    canvas_.OpenPaper(legend.box);  // no grid line runs through the names
    canvas_.ClosePaper();
    auto row = legend.rows.begin();
    for (const FigureSeries& series : figure_.series) {
      if (!IsListed(series)) continue;
      const double y = row->start.y - (canvas_.Ascent() - canvas_.Descent()) / 2;
      const double left = legend.box.left + Units(5);
      if (!series.curve.empty())
        canvas_.DrawCurve(std::vector<PaperPoint>{{left, y}, {left + legend.sample, y}},
                          {series.curveInk, Units(kCurveWidth), series.line});
      if (!series.points.empty()) DrawMarkers(series, {{left + legend.sample / 2, y}});
      ++row;
    }
    Write(legend.rows);
  }

  void Write(const std::vector<LaidText>& texts) {
    for (const auto& [start, text, upwards] : texts)
      upwards ? canvas_.WriteUpwards(start, text) : canvas_.Write(start, text);
  }

  ChartCanvas& canvas_;
  const Figure& figure_;
  const FigureLayout& layout_;
};

}  // namespace

void DrawFigure(ChartCanvas& canvas, const PaperArea& paper, const Figure& figure,
                const ChartStyle& style) {
  canvas.OpenPaper(paper);
  const FigureLayout layout = LayOut(figure, paper, canvas, style);
  canvas.SetFontHeight(layout.letters);
  Drawing(canvas, figure, layout).Draw();
  canvas.ClosePaper();
}

}  // namespace velmora
