#include "app/cultivation/CultivationIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>

namespace velmora {
namespace {

constexpr int kSide = 64;      // pixels drawn
constexpr double kUnits = 16;  // units of the drawings' grid along a side
constexpr QColor kInk(0x3A, 0x46, 0x52);
constexpr QColor kGreen(0x1E, 0x8E, 0x3E);
constexpr QColor kRed(0xC6, 0x28, 0x28);
constexpr QColor kBlue(0x1F, 0x5F, 0xA8);

void Arrow(QPainter& p, const QPolygonF& head, QLineF shaft) {
  p.drawLine(shaft);
  p.drawPolyline(head);
}

void Filled(QPainter& p, QColor colour, const QPolygonF& shape) {
  p.setPen(QPen(colour, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(colour);
  p.drawPolygon(shape);
}

void Back(QPainter& p) {
  Arrow(p, {{7, 4}, {3, 8}, {7, 12}}, {3, 8, 13, 8});
}

void Padlock(QPainter& p) {
  p.drawArc(QRectF(2.5, 2, 6, 8), 20 * 16, 200 * 16);
  p.setBrush(kInk);
  p.drawRoundedRect(QRectF(4, 7.5, 9, 6.5), 1, 1);
}

void Tick(QPainter& p, QColor colour) {
  p.setPen(QPen(colour, 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPolyline(QPolygonF({{3, 8.5}, {6.5, 12}, {13, 4}}));
}

void Disk(QPainter& p) {
  p.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1, 1);
  p.setBrush(kInk);
  p.drawRect(QRectF(5.5, 2.5, 5, 3));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(4.5, 8.5, 7, 5));
}

void Cross(QPainter& p) {
  p.drawLine(QLineF(4, 4, 12, 12));
  p.drawLine(QLineF(12, 4, 4, 12));
}

/// An arrow that turns back, or, mirrored, forward.
void Turn(QPainter& p, bool forward) {
  if (forward) {
    p.translate(kUnits, 0);
    p.scale(-1, 1);
  }
  p.setPen(QPen(kBlue, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath path({3, 6});
  path.lineTo(9, 6);
  path.cubicTo(14, 6, 14, 13, 9, 13);
  path.lineTo(6, 13);
  p.drawPath(path);
  p.drawPolyline(QPolygonF({{6, 3}, {3, 6}, {6, 9}}));
}

void Sheet(QPainter& p) {
  p.drawPolygon(QPolygonF({{4, 2}, {10, 2}, {12.5, 4.5}, {12.5, 14}, {4, 14}}));
  for (const double y : {6.0, 8.5, 11.0}) p.drawLine(QLineF(6, y, 10.5, y));
}

void Draw(QPainter& p, Symbol symbol) {
  switch (symbol) {
    case Symbol::Back:
      return Back(p);
    case Symbol::Previous:
      return Filled(p, kInk, {{11, 3}, {5, 8}, {11, 13}});
    case Symbol::Next:
      return Filled(p, kInk, {{5, 3}, {11, 8}, {5, 13}});
    case Symbol::Unlock:
      return Padlock(p);
    case Symbol::Confirm:
      return Tick(p, kGreen);
    case Symbol::Save:
      return Disk(p);
    case Symbol::Start:
      return Filled(p, kGreen, {{5, 3}, {13, 8}, {5, 13}});
    case Symbol::Stop:
      return Filled(p, kRed, {{4, 4}, {12, 4}, {12, 12}, {4, 12}});
    case Symbol::Clear:
      return Cross(p);
    case Symbol::Initial:
      return Turn(p, false);
    case Symbol::Forward:
      return Turn(p, true);
    case Symbol::Report:
      return Sheet(p);
  }
}

}  // namespace

QIcon DrawnIcon(Symbol symbol) {
  QPixmap picture(kSide, kSide);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kSide / kUnits, kSide / kUnits);
  painter.setPen(QPen(kInk, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Draw(painter, symbol);
  painter.end();
  return QIcon(picture);
}

}  // namespace velmora
