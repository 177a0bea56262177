#include "app/experiments/ExperimentIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace velmora {
namespace {

// Drawn on a sheet of 24 x 24 units.
constexpr int kSheet = 24;
constexpr int kPixels = 96;
constexpr double kPen = 1.6;
constexpr QColor kBlue(0x2A, 0x6F, 0xBB);
constexpr QColor kGreen(0x2E, 0x8B, 0x57);
constexpr QColor kRed(0xC0, 0x39, 0x2B);

void DrawInsert(QPainter& painter) {
  painter.drawRoundedRect(QRectF(4, 3, 12, 18), 1, 1);
  for (const double y : {7.5, 11.5, 15.5}) painter.drawLine(QPointF(7, y), QPointF(13, y));
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawEllipse(QPointF(17, 17), 5.5, 5.5);
  painter.setPen(QPen(Qt::white, 2));
  painter.drawLine(QPointF(14, 17), QPointF(20, 17));
  painter.drawLine(QPointF(17, 14), QPointF(17, 20));
}

void DrawSave(QPainter& painter) {
  QPainterPath body(QPointF(4, 4));
  for (const QPointF corner : {QPointF(17, 4), QPointF(20, 7), QPointF(20, 20), QPointF(4, 20)})
    body.lineTo(corner);
  body.closeSubpath();
  painter.setBrush(kBlue.lighter(180));
  painter.drawPath(body);
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(7.5, 12.5, 9, 7.5));
  painter.drawRect(QRectF(8.5, 4, 6.5, 4.5));
}

/// An eraser over a line.
void DrawClear(QPainter& painter) {
  painter.drawLine(QPointF(10, 20.5), QPointF(21, 20.5));
  painter.translate(11, 11.5);
  painter.rotate(-45);
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(-8.5, -4, 17, 8), 1.5, 1.5);
  painter.setBrush(kRed.lighter(150));
  painter.drawRoundedRect(QRectF(-8.5, -4, 7, 8), 1.5, 1.5);
}

void DrawAxes(QPainter& painter) {
  painter.drawLine(QPointF(4, 3), QPointF(4, 20));
  painter.drawLine(QPointF(4, 20), QPointF(21, 20));
}

void DrawViewGraphs(QPainter& painter) {
  DrawAxes(painter);
  QPainterPath growth(QPointF(5.5, 18));
  growth.cubicTo(QPointF(13, 18), QPointF(11, 6.5), QPointF(20, 6));
  painter.setPen(QPen(kBlue, kPen));
  painter.drawPath(growth);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kRed);
  for (const QPointF point : {QPointF(8, 17), QPointF(12, 12.5), QPointF(15.5, 7.5)})
    painter.drawEllipse(point, 1.7, 1.7);
}

void DrawGridLines(QPainter& painter) {
  DrawAxes(painter);
  QPen dotted(painter.pen().color(), 1, Qt::DotLine);
  painter.setPen(dotted);
  for (const double at : {5.0, 10.0, 15.0}) {
    painter.drawLine(QPointF(5, at), QPointF(21, at));
    painter.drawLine(QPointF(at + 4, 4), QPointF(at + 4, 19));
  }
}

void DrawLegend(QPainter& painter) {
  painter.drawRoundedRect(QRectF(3, 4, 18, 16), 1, 1);
  const QColor colours[] = {kBlue, kRed, kGreen};
  double y = 8;
  for (const QColor& colour : colours) {
    painter.drawLine(QPointF(11, y), QPointF(18, y));
    painter.fillRect(QRectF(6, y - 1.4, 2.8, 2.8), colour);
    y += 4;
  }
}

/// A waste bin.
void DrawDelete(QPainter& painter) {
  painter.setPen(QPen(kRed, kPen));
  painter.drawLine(QPointF(4, 6.5), QPointF(20, 6.5));
  painter.drawRect(QRectF(9.5, 3.5, 5, 3));
  painter.drawPolyline(
      QPolygonF({QPointF(6, 6.5), QPointF(7, 20.5), QPointF(17, 20.5), QPointF(18, 6.5)}));
  for (const double x : {10.0, 14.0}) painter.drawLine(QPointF(x, 10), QPointF(x, 17.5));
}

/// A white arrow: its button is filled.
void DrawNextStep(QPainter& painter) {
  painter.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawLine(QPointF(3.5, 12), QPointF(20, 12));
  painter.drawPolyline(QPolygonF({QPointF(13.5, 5.5), QPointF(20, 12), QPointF(13.5, 18.5)}));
}

void Draw(ExperimentAction action, QPainter& painter) {
  switch (action) {
    case ExperimentAction::Insert:
      return DrawInsert(painter);
    case ExperimentAction::Save:
      return DrawSave(painter);
    case ExperimentAction::Clear:
      return DrawClear(painter);
    case ExperimentAction::ViewGraphs:
      return DrawViewGraphs(painter);
    case ExperimentAction::GridLines:
      return DrawGridLines(painter);
    case ExperimentAction::Legend:
      return DrawLegend(painter);
    case ExperimentAction::Delete:
      return DrawDelete(painter);
    case ExperimentAction::NextStep:
      return DrawNextStep(painter);
  }
}

}  // namespace

QIcon IconOf(ExperimentAction action, const QPalette& palette) {
  QPixmap sheet(kPixels, kPixels);
  sheet.fill(Qt::transparent);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kPixels / double{kSheet}, kPixels / double{kSheet});
  painter.setPen(QPen(palette.color(QPalette::ButtonText), kPen));
  Draw(action, painter);
  painter.end();
  return QIcon(sheet);
}

}  // namespace velmora
