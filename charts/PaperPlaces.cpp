#include "charts/PaperPlaces.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// The user coordinates of the paper's edges.
struct Window {
  double left, right, top, bottom;
};

Window WindowOf(const PlotScale& scale) {
  Window window{scale.upperLeft.x, scale.lowerRight.x, scale.upperLeft.y, scale.lowerRight.y};
  if (!HasWidth(scale)) window.left = scale.origin - 0.2, window.right = scale.origin + 1.1;
  if (!HasHeight(scale)) window.top = 1.2, window.bottom = -0.2;
  return window;
}

/// The share of a distance; 0 where the whole has no width.
double Share(double part, double whole) {
  return whole == 0 ? 0 : part / whole;
}

bool Finite(const PaperLine& line) {
  return std::isfinite(line.from.x) && std::isfinite(line.from.y) &&
         std::isfinite(line.to.x - line.from.x) && std::isfinite(line.to.y - line.from.y);
}

PaperPoint Between(const PaperLine& line, double share) {
  return {line.from.x + share * (line.to.x - line.from.x),
          line.from.y + share * (line.to.y - line.from.y)};
}

}  // namespace

PaperPoint ToPaper(const PlotScale& scale, const PaperArea& paper, const PlotPoint& point) {
  const Window window = WindowOf(scale);
  const double x = Share(point.x - window.left, window.right - window.left);
  const double y = Share(window.top - point.y, window.top - window.bottom);
  return {paper.left + x * paper.width, paper.top + y * paper.height};
}

PlotPoint FromPaper(const PlotScale& scale, const PaperArea& paper, const PaperPoint& position) {
  const Window window = WindowOf(scale);
  const double x = Share(position.x - paper.left, paper.width);
  const double y = Share(position.y - paper.top, paper.height);
  return {window.left + x * (window.right - window.left),
          window.top - y * (window.top - window.bottom)};
}

/// Liang and Barsky (1984).
std::optional<PaperLine> Cut(const PaperLine& line, const PaperArea& frame) {
  if (!Finite(line)) return std::nullopt;
  const double dx = line.to.x - line.from.x, dy = line.to.y - line.from.y;
  const double towards[] = {-dx, dx, -dy, dy};
  const double room[] = {line.from.x - frame.left, frame.Right() - line.from.x,
                         line.from.y - frame.top, frame.Bottom() - line.from.y};
  double from = 0, to = 1;
  for (int edge = 0; edge < 4; ++edge) {
    if (towards[edge] < 0) from = std::max(from, room[edge] / towards[edge]);
    if (towards[edge] > 0) to = std::min(to, room[edge] / towards[edge]);
    if (towards[edge] == 0 && room[edge] < 0) return std::nullopt;
  }
  if (from > to) return std::nullopt;
  return PaperLine{from == 0 ? line.from : Between(line, from),
                   to == 1 ? line.to : Between(line, to)};
}

}  // namespace velmora
