#include "app/charts/ZoomIcons.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPolygonF>

#include "app/experiments/ExperimentIcons.h"

namespace velmora {
namespace {

// Drawn on a sheet of 24 x 24 units.
constexpr int kSheet = 24;
constexpr int kPixels = 96;
constexpr double kPen = 1.6;
constexpr QColor kBlue(0x2A, 0x6F, 0xBB);
constexpr QColor kRed(0xC0, 0x39, 0x2B);

/// A letter T above the lines of a chart.
void DrawTitle(QPainter& painter) {
  const QColor ink = painter.pen().color();
  painter.setPen(QPen(kBlue, 2.4, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(QPointF(6, 4.2), QPointF(18, 4.2));
  painter.drawLine(QPointF(12, 4), QPointF(12, 13));
  painter.setPen(QPen(ink, kPen));
  painter.drawPolyline(QPolygonF({QPointF(4, 10), QPointF(4, 20.5), QPointF(21, 20.5)}));
}

/// A piece of the time axis between two bounds.
void DrawRange(QPainter& painter) {
  painter.fillRect(QRectF(7.5, 4, 9, 13.5), kBlue.lighter(170));
  painter.drawLine(QPointF(3, 20.5), QPointF(21, 20.5));
  painter.setPen(QPen(kBlue, kPen));
  for (const double x : {7.5, 16.5}) painter.drawLine(QPointF(x, 3.5), QPointF(x, 20));
  painter.drawLine(QPointF(9.5, 11), QPointF(14.5, 11));
  painter.drawPolyline(QPolygonF({QPointF(11, 9), QPointF(9.3, 11), QPointF(11, 13)}));
  painter.drawPolyline(QPolygonF({QPointF(13, 9), QPointF(14.7, 11), QPointF(13, 13)}));
}

void DrawCopy(QPainter& painter) {
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(4, 3, 11, 14), 1, 1);
  painter.drawRoundedRect(QRectF(9, 7, 11, 14), 1, 1);
  painter.setPen(QPen(kBlue, kPen));
  painter.drawPolyline(
      QPolygonF({QPointF(11.5, 18), QPointF(14, 14), QPointF(15.5, 15.5), QPointF(18, 11)}));
}

void DrawPrint(QPainter& painter) {
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(7, 3, 10, 7));
  painter.setBrush(kBlue.lighter(170));
  painter.drawRoundedRect(QRectF(3, 9, 18, 8), 1.5, 1.5);
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(7, 14, 10, 7));
  for (const double y : {16.5, 18.8}) painter.drawLine(QPointF(9, y), QPointF(15, y));
}

void DrawClose(QPainter& painter) {
  painter.setPen(QPen(kRed, 2.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(5.5, 5.5), QPointF(18.5, 18.5));
  painter.drawLine(QPointF(18.5, 5.5), QPointF(5.5, 18.5));
}

QIcon Drawn(void (*draw)(QPainter&), const QPalette& palette) {
  QPixmap sheet(kPixels, kPixels);
  sheet.fill(Qt::transparent);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kPixels / double{kSheet}, kPixels / double{kSheet});
  painter.setPen(QPen(palette.color(QPalette::ButtonText), kPen));
  draw(painter);
  painter.end();
  return QIcon(sheet);
}

}  // namespace

QIcon IconOf(ZoomAction action, const QPalette& palette) {
  switch (action) {
    case ZoomAction::Title:
      return Drawn(DrawTitle, palette);
    case ZoomAction::Legend:
      return IconOf(ExperimentAction::Legend, palette);
    case ZoomAction::GridLines:
      return IconOf(ExperimentAction::GridLines, palette);
    case ZoomAction::Range:
      return Drawn(DrawRange, palette);
    case ZoomAction::Copy:
      return Drawn(DrawCopy, palette);
    case ZoomAction::Save:
      return IconOf(ExperimentAction::Save, palette);
    case ZoomAction::Print:
      return Drawn(DrawPrint, palette);
    case ZoomAction::Close:
      break;
  }
  return Drawn(DrawClose, palette);
}

}  // namespace velmora
