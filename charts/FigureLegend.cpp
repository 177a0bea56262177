#include "charts/FigureLegend.h"

#include <algorithm>

#include "charts/ChartLetters.h"
#include "charts/PaperPlaces.h"

namespace velmora {
namespace {

// Sizes in units.
constexpr double kSample = 30;
constexpr double kToName = 6;
constexpr double kPadding = 5;
constexpr double kFromAxes = 6;
constexpr double kPointRoom = 6;  // about a point

constexpr double kWidest = 0.6;  // of the paper

double LineHeight(const ChartCanvas& canvas) {
  return 1.15 * (canvas.Ascent() + canvas.Descent());
}

double NameRoom(const PaperArea& paper, double unit) {
  return kWidest * paper.width - (kSample + kToName + 2 * kPadding) * unit;
}

std::string NameOf(const FigureSeries& series, double room, const ChartCanvas& canvas) {
  return Wrapped(series.name, room, 1, canvas).front();
}

bool Covers(const PaperArea& box, const FigureSeries& series, const FigureLayout& layout) {
  const PaperArea near = box.Grown(kPointRoom * layout.unit);
  if (std::any_of(series.points.begin(), series.points.end(),
                  [&](const PlotPoint& point) { return near.Contains(layout.At(point)); }))
    return true;
  for (std::size_t k = 1; k < series.curve.size(); ++k)
    if (Cut({layout.At(series.curve[k - 1]), layout.At(series.curve[k])}, box)) return true;
  return false;
}

}  // namespace

bool IsListed(const FigureSeries& series) {
  return !series.name.empty() && (!series.points.empty() || !series.curve.empty());
}

LegendSize SizeOfLegend(const Figure& figure, const PaperArea& paper, const ChartCanvas& canvas,
                        double unit) {
  LegendSize size;
  for (const FigureSeries& series : figure.series) {
    if (!IsListed(series)) continue;
    ++size.rows;
    const std::string name = NameOf(series, NameRoom(paper, unit), canvas);
    size.width = std::max(size.width, canvas.WidthOf(name));
  }
  size.width += (kSample + kToName + 2 * kPadding) * unit;
  size.height = static_cast<double>(size.rows) * LineHeight(canvas) + 2 * kPadding * unit;
  return size;
}

std::optional<PaperPoint> FreeCorner(const Figure& figure, const FigureLayout& layout,
                                     const LegendSize& size) {
  const PaperArea inside = layout.frame.Grown(-kFromAxes * layout.unit);
  if (size.width > inside.width || size.height > inside.height) return std::nullopt;
  const double right = inside.Right() - size.width, bottom = inside.Bottom() - size.height;
  const double middle = inside.Centre().y - size.height / 2;
  const double centre = inside.Centre().x - size.width / 2;
  const PaperPoint places[] = {
      {right, inside.top}, {inside.left, inside.top}, {right, bottom},      {inside.left, bottom},
      {right, middle},     {inside.left, middle},     {centre, inside.top}, {centre, bottom}};
  for (const PaperPoint& at : places) {
    const PaperArea box{at.x, at.y, size.width, size.height};
    const bool covers =
        std::any_of(figure.series.begin(), figure.series.end(),
                    [&](const FigureSeries& series) { return Covers(box, series, layout); }) ||
        std::any_of(figure.guides.begin(), figure.guides.end(), [&](const FigureGuide& guide) {
          return Cut({layout.At(guide.from), layout.At(guide.to)}, box).has_value();
        });
    if (!covers) return at;
  }
  return std::nullopt;
}

LaidLegend LegendAt(const PaperPoint& upperLeft, const Figure& figure, const LegendSize& size,
                    const ChartCanvas& canvas, double unit) {
  LaidLegend legend{{upperLeft.x, upperLeft.y, size.width, size.height}, {}, kSample * unit};
  const double padding = kPadding * unit, toName = kToName * unit;
  const double room = size.width - 2 * padding - legend.sample - toName;
  double base = upperLeft.y + padding + canvas.Ascent();
  for (const FigureSeries& series : figure.series) {
    if (!IsListed(series)) continue;
    legend.rows.push_back({{upperLeft.x + padding + legend.sample + toName, base},
                           NameOf(series, room + unit, canvas)});
    base += LineHeight(canvas);
  }
  return legend;
}

}  // namespace velmora
