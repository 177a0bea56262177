// The eight marker figures, six colours and three line kinds, as values.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "charts/ChartCanvas.h"

namespace velmora {

enum class Shape : std::uint8_t { Circle, Square, Triangle };

struct MarkerFigure {
  Shape shape = Shape::Circle;
  bool filled = true;
  int turn = 0;  // of a triangle, quarters of a circle clockwise from pointing up
};

/// The figure of a marker (marker); a filled circle for a name that is no marker.
MarkerFigure FigureOf(std::string_view marker);

/// The corners of a triangle round the origin, `size` wide where it points up.
std::array<PaperPoint, 3> TriangleCorners(double size, int turn);

/// The ink of a colour number 1..6; black for any other.
Ink InkOf(std::int32_t colour);

/// The kind of a line number: 1 solid, 2 dotted, 3 dashed; solid for any other.
LineKind LineKindOf(std::int16_t line);

/// The lengths of the pieces of a line that are drawn and left out by turns, in widths of the line;
/// none for a solid one.
std::span<const double> DashesOf(LineKind kind);

}  // namespace velmora
