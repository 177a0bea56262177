#include "app/charts/Markers.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QSize>
#include <QTransform>
#include <cmath>

namespace velmora {
namespace {

QPolygonF TriangleAt(double size, int turn) {
  QPolygonF triangle;
  for (const PaperPoint& corner : TriangleCorners(size, turn))
    triangle.append(QPointF(corner.x, corner.y));
  return triangle;
}

bool PaintsPixels(const QPainter& painter) {
  const bool raster = painter.paintEngine()->type() == QPaintEngine::Raster;
  return raster && painter.deviceTransform().type() <= QTransform::TxScale;
}

/// Draws one figure of at most `width` into a picture and puts it at every centre: stroking each
/// figure anew takes fifty times as long.
template <class Draw>
void Stamp(QPainter& painter, const QPolygonF& centres, double width, Draw&& draw) {
  const QTransform toPixels = painter.deviceTransform();
  const QTransform fromPixels = toPixels.inverted();
  const double ratio = toPixels.m11();
  const int half = static_cast<int>(std::ceil(width * ratio / 2)) + 1;
  QImage stamp(2 * half, 2 * half, QImage::Format_ARGB32_Premultiplied);
  stamp.fill(Qt::transparent);
  stamp.setDevicePixelRatio(ratio);
  QPainter onStamp(&stamp);
  draw(onStamp, QPointF(half / ratio, half / ratio));
  onStamp.end();
  for (const QPointF& centre : centres) {
    const QPoint pixel = toPixels.map(centre).toPoint() - QPoint(half, half);
    painter.drawImage(fromPixels.map(QPointF(pixel)), stamp);
  }
}

void DrawDotsAsPoints(QPainter& painter, const QPolygonF& centres, double width,
                      const QColor& colour) {
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawPoints(centres);
}

QPixmap WhitePixmap(const QSize& size) {
  QPixmap pixmap(size);
  pixmap.fill(Qt::white);
  return pixmap;
}

}  // namespace

QColor ColourOf(std::int32_t number) {
  const Ink ink = InkOf(number);
  return QColor(ink.red, ink.green, ink.blue);
}

Qt::PenStyle PenStyleOf(LineKind kind) {
  switch (kind) {
    case LineKind::Dotted:
      return Qt::DotLine;
    case LineKind::Dashed:
      return Qt::DashLine;
    case LineKind::DashDotted:
      return Qt::DashDotLine;
    case LineKind::DashDotDotted:
      return Qt::DashDotDotLine;
    case LineKind::Solid:
      break;
  }
  return Qt::SolidLine;
}

std::string_view MarkerPictureName(std::string_view marker) {
  if (marker == "Triang1") return "Triang3";
  if (marker == "Triang3") return "Triang1";
  return marker;
}

void DrawMarker(QPainter& painter, std::string_view marker, const QPointF& centre, double size,
                const QColor& colour, double lineWidth) {
  const MarkerFigure shape = FigureOf(marker);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
  painter.setBrush(shape.filled ? QBrush(colour) : QBrush(Qt::white));
  painter.translate(centre);
  const double side = size - lineWidth;
  switch (shape.shape) {
    case Shape::Circle:
      painter.drawEllipse(QPointF(0, 0), side / 2, side / 2);
      break;
    case Shape::Square:
      painter.drawRect(QRectF(-side / 2, -side / 2, side, side));
      break;
    case Shape::Triangle:
      painter.drawPolygon(TriangleAt(side, shape.turn));
      break;
  }
  painter.restore();
}

void DrawMarkers(QPainter& painter, std::string_view marker, const QPolygonF& centres, double size,
                 const QColor& colour, double lineWidth) {
  const auto draw = [&](QPainter& on, const QPointF& centre) {
    DrawMarker(on, marker, centre, size, colour, lineWidth);
  };
  if (PaintsPixels(painter)) return Stamp(painter, centres, size + lineWidth, draw);
  for (const QPointF& centre : centres) draw(painter, centre);
}

void DrawDots(QPainter& painter, const QPolygonF& centres, double width, const QColor& colour) {
  painter.save();
  if (PaintsPixels(painter))
    Stamp(painter, centres, width, [&](QPainter& on, const QPointF& centre) {
      on.setRenderHint(QPainter::Antialiasing);
      DrawDotsAsPoints(on, QPolygonF({centre}), width, colour);
    });
  else
    DrawDotsAsPoints(painter, centres, width, colour);
  painter.restore();
}

QPixmap MarkerPixmap(std::string_view marker, int size) {
  QPixmap pixmap = WhitePixmap({size, size});
  QPainter painter(&pixmap);
  DrawMarker(painter, marker, {size / 2.0, size / 2.0}, size * 0.75, Qt::black, size / 12.0);
  return pixmap;
}

QPixmap ColourPixmap(std::int32_t number, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(ColourOf(number));
  return pixmap;
}

QPixmap LinePixmap(std::int16_t line, const QSize& size) {
  QPixmap pixmap = WhitePixmap(size);
  QPainter painter(&pixmap);
  painter.setPen(QPen(Qt::black, 2, PenStyleOf(LineKindOf(line)), Qt::FlatCap));
  painter.drawLine(QPointF(2, size.height() / 2.0), QPointF(size.width() - 2, size.height() / 2.0));
  return pixmap;
}

}  // namespace velmora
