#include "charts/MarkerFigures.h"

#include "data/Experiment.h"

namespace velmora {
namespace {

/// By marker number 1..8.
constexpr MarkerFigure kFigures[] = {{Figure::Circle, true, 0},   {Figure::Circle, false, 0},
                                     {Figure::Square, true, 0},   {Figure::Square, false, 0},
                                     {Figure::Triangle, true, 0}, {Figure::Triangle, true, 1},
                                     {Figure::Triangle, true, 2}, {Figure::Triangle, true, 3}};

PaperPoint TurnedRight(const PaperPoint& point) {
  return {-point.y, point.x};
}

}  // namespace

MarkerFigure FigureOf(std::string_view marker) {
  const int number = MarkerNumber(marker);
  return kFigures[number == 0 ? 0 : number - 1];
}

std::array<PaperPoint, 3> TriangleCorners(double size, int turn) {
  const double half = size / 2;
  std::array<PaperPoint, 3> corners = {{{0, -half}, {half, half * 0.8}, {-half, half * 0.8}}};
  for (; turn > 0; --turn)
    for (PaperPoint& corner : corners) corner = TurnedRight(corner);
  return corners;
}

Ink InkOf(std::int32_t colour) {
  if (colour < 1 || colour > static_cast<std::int32_t>(kColours.size())) return {};
  const std::uint32_t bgr = kColours[static_cast<std::size_t>(colour) - 1].bgr;
  return {static_cast<std::uint8_t>(bgr), static_cast<std::uint8_t>(bgr >> 8U),
          static_cast<std::uint8_t>(bgr >> 16U)};
}

LineKind LineKindOf(std::int16_t line) {
  if (line == 2) return LineKind::Dotted;
  return line == 3 ? LineKind::Dashed : LineKind::Solid;
}

}  // namespace velmora
