#include "charts/MarkerFigures.h"

#include "data/Experiment.h"

namespace velmora {
namespace {

/// By marker number 1..8.
constexpr MarkerFigure kFigures[] = {{Shape::Circle, true, 0},   {Shape::Circle, false, 0},
                                     {Shape::Square, true, 0},   {Shape::Square, false, 0},
                                     {Shape::Triangle, true, 0}, {Shape::Triangle, true, 1},
                                     {Shape::Triangle, true, 2}, {Shape::Triangle, true, 3}};

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

std::span<const double> DashesOf(LineKind kind) {
  static constexpr double kDotted[] = {1, 2};
  static constexpr double kDashed[] = {4, 2};
  static constexpr double kDashDotted[] = {4, 2, 1, 2};
  static constexpr double kDashDotDotted[] = {4, 2, 1, 2, 1, 2};
  switch (kind) {
    case LineKind::Dotted:
      return kDotted;
    case LineKind::Dashed:
      return kDashed;
    case LineKind::DashDotted:
      return kDashDotted;
    case LineKind::DashDotDotted:
      return kDashDotDotted;
    case LineKind::Solid:
      break;
  }
  return {};
}

}  // namespace velmora
