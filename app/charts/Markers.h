// The eight marker figures and the six colours, as every chart, chooser and legend draws them.
#pragma once

#include <QColor>
#include <QPen>
#include <QPixmap>
#include <QPointF>
#include <QPolygonF>
#include <QString>
#include <cstdint>
#include <string_view>

#include "charts/MarkerFigures.h"

class QPainter;

namespace velmora {

/// The drawing colour of a colour number 1..6; black for any other.
QColor ColourOf(std::int32_t number);

/// The pen style of a line.
Qt::PenStyle PenStyleOf(LineKind kind);

/// The picture that shows a marker: its name, but for the first and the third triangle, whose
/// pictures are exchanged.
std::string_view MarkerPictureName(std::string_view marker);

/// Draws the figure of a marker (marker) round `centre`, `size` wide, in the pen and brush
/// colour `colour`. A name that is no marker is drawn as a filled circle.
void DrawMarker(QPainter& painter, std::string_view marker, const QPointF& centre, double size,
                const QColor& colour, double lineWidth);

/// Draws the figure round each of `centres`, and a dot `width` wide at each of them. Thousands take
/// a few milliseconds on the screen, where each is moved to the nearest pixel.
void DrawMarkers(QPainter& painter, std::string_view marker, const QPolygonF& centres, double size,
                 const QColor& colour, double lineWidth);
void DrawDots(QPainter& painter, const QPolygonF& centres, double width, const QColor& colour);

/// A marker's figure in black on white, and a sample of a colour; `size` pixels square.
QPixmap MarkerPixmap(std::string_view marker, int size);
QPixmap ColourPixmap(std::int32_t number, int size);

/// A piece of a line in the style of a line number, for a chooser.
QPixmap LinePixmap(std::int16_t line, const QSize& size);

}  // namespace velmora
