#include "app/widgets/Icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QPolygonF>

#include "app/widgets/Colours.h"

namespace velmora {
namespace {

/// A pen whose ends and corners are round.
QPen RoundPen(const QColor& colour, double width) {
  return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// Experiments and charts: on a sheet of 24 x 24 units.
namespace large {

constexpr double kPen = 1.6;
constexpr QColor kBlue(0x2A, 0x6F, 0xBB);
constexpr QColor kGreen(0x2E, 0x8B, 0x57);
constexpr QColor kRed(0xC0, 0x39, 0x2B);

void NewSheet(QPainter& p) {
  p.drawRoundedRect(QRectF(4, 3, 12, 18), 1, 1);
  for (const double y : {7.5, 11.5, 15.5}) p.drawLine(QLineF(7, y, 13, y));
  p.setPen(Qt::NoPen);
  p.setBrush(kGreen);
  p.drawEllipse(QPointF(17, 17), 5.5, 5.5);
  p.setPen(QPen(Qt::white, 2));
  p.drawLine(QLineF(14, 17, 20, 17));
  p.drawLine(QLineF(17, 14, 17, 20));
}

void Diskette(QPainter& p) {
  QPainterPath body;
  body.addPolygon(QPolygonF({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}));
  body.closeSubpath();
  p.setBrush(kBlue.lighter(180));
  p.drawPath(body);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(7.5, 12.5, 9, 7.5));
  p.drawRect(QRectF(8.5, 4, 6.5, 4.5));
}

/// Over a line that it wipes away.
void Eraser(QPainter& p) {
  p.drawLine(QLineF(10, 20.5, 21, 20.5));
  p.translate(11, 11.5);
  p.rotate(-45);
  p.setBrush(Qt::white);
  p.drawRoundedRect(QRectF(-8.5, -4, 17, 8), 1.5, 1.5);
  p.setBrush(kRed.lighter(150));
  p.drawRoundedRect(QRectF(-8.5, -4, 7, 8), 1.5, 1.5);
}

void Axes(QPainter& p) {
  p.drawLine(QLineF(4, 3, 4, 20));
  p.drawLine(QLineF(4, 20, 21, 20));
}

void GrowthCurve(QPainter& p) {
  Axes(p);
  QPainterPath growth(QPointF(5.5, 18));
  growth.cubicTo(QPointF(13, 18), QPointF(11, 6.5), QPointF(20, 6));
  p.setPen(QPen(Readable(kBlue), kPen));
  p.drawPath(growth);
  p.setPen(Qt::NoPen);
  p.setBrush(kRed);
  for (const QPointF point : {QPointF(8, 17), QPointF(12, 12.5), QPointF(15.5, 7.5)})
    p.drawEllipse(point, 1.7, 1.7);
}

void Grid(QPainter& p) {
  Axes(p);
  p.setPen(QPen(p.pen().color(), 1, Qt::DotLine));
  for (const double at : {5.0, 10.0, 15.0}) {
    p.drawLine(QLineF(5, at, 21, at));
    p.drawLine(QLineF(at + 4, 4, at + 4, 19));
  }
}

void Legend(QPainter& p) {
  p.drawRoundedRect(QRectF(3, 4, 18, 16), 1, 1);
  double y = 8;
  for (const QColor& colour : {kBlue, kRed, kGreen}) {
    p.drawLine(QLineF(11, y, 18, y));
    p.fillRect(QRectF(6, y - 1.4, 2.8, 2.8), colour);
    y += 4;
  }
}

void Bin(QPainter& p) {
  p.setPen(QPen(Readable(kRed), kPen));
  p.drawLine(QLineF(4, 6.5, 20, 6.5));
  p.drawRect(QRectF(9.5, 3.5, 5, 3));
  p.drawPolyline(QPolygonF({{6, 6.5}, {7, 20.5}, {17, 20.5}, {18, 6.5}}));
  for (const double x : {10.0, 14.0}) p.drawLine(QLineF(x, 10, x, 17.5));
}

void NextStep(QPainter& p) {
  p.setPen(RoundPen(Qt::white, 3));
  p.drawLine(QLineF(3.5, 12, 20, 12));
  p.drawPolyline(QPolygonF({{13.5, 5.5}, {20, 12}, {13.5, 18.5}}));
}

/// A letter T above the lines of a chart.
void Title(QPainter& p) {
  const QColor ink = p.pen().color();
  p.setPen(QPen(Readable(kBlue), 2.4, Qt::SolidLine, Qt::FlatCap));
  p.drawLine(QLineF(6, 4.2, 18, 4.2));
  p.drawLine(QLineF(12, 4, 12, 13));
  p.setPen(QPen(ink, kPen));
  p.drawPolyline(QPolygonF({{4, 10}, {4, 20.5}, {21, 20.5}}));
}

/// A piece of the time axis between two bounds.
void Range(QPainter& p) {
  p.fillRect(QRectF(7.5, 4, 9, 13.5), kBlue.lighter(170));
  p.drawLine(QLineF(3, 20.5, 21, 20.5));
  p.setPen(QPen(Readable(kBlue), kPen));
  for (const double x : {7.5, 16.5}) p.drawLine(QLineF(x, 3.5, x, 20));
  p.drawLine(QLineF(9.5, 11, 14.5, 11));
  p.drawPolyline(QPolygonF({{11, 9}, {9.3, 11}, {11, 13}}));
  p.drawPolyline(QPolygonF({{13, 9}, {14.7, 11}, {13, 13}}));
}

void Copy(QPainter& p) {
  p.setBrush(Qt::white);
  p.drawRoundedRect(QRectF(4, 3, 11, 14), 1, 1);
  p.drawRoundedRect(QRectF(9, 7, 11, 14), 1, 1);
  p.setPen(QPen(Readable(kBlue), kPen));
  p.drawPolyline(QPolygonF({{11.5, 18}, {14, 14}, {15.5, 15.5}, {18, 11}}));
}

/// A printed page with a chart.
void Publication(QPainter& p) {
  p.setBrush(Qt::white);
  p.drawRect(QRectF(4.5, 3, 15, 18));
  p.drawPolyline(QPolygonF({{7.5, 6}, {7.5, 13}, {17, 13}}));
  p.setPen(QPen(Readable(kBlue), kPen));
  p.drawPolyline(QPolygonF({{9, 11.5}, {12, 10}, {16, 6.5}}));
  p.setPen(QPen(Qt::gray, kPen));
  for (const double y : {16.0, 18.5}) p.drawLine(QLineF(7.5, y, 16.5, y));
}

/// Grid lines that move together upwards.
void Logarithm(QPainter& p) {
  Axes(p);
  p.setPen(QPen(Readable(kBlue), kPen));
  for (const double y : {14.5, 10.5, 7.5, 5.5, 4.0}) p.drawLine(QLineF(4, y, 20, y));
}

/// Points about a level line.
void Residuals(QPainter& p) {
  p.drawLine(QLineF(4, 3, 4, 21));
  p.drawLine(QLineF(4, 12, 21, 12));
  p.setPen(Qt::NoPen);
  p.setBrush(kRed);
  for (const QPointF point :
       {QPointF(8, 8), QPointF(12, 15.5), QPointF(15.5, 9.5), QPointF(19, 14)})
    p.drawEllipse(point, 1.7, 1.7);
}

/// A frame that reaches out to its corners.
void WholeChart(QPainter& p) {
  p.setPen(QPen(Readable(kBlue), kPen));
  p.drawPolyline(QPolygonF({{4, 9}, {4, 4}, {9, 4}}));
  p.drawPolyline(QPolygonF({{15, 4}, {20, 4}, {20, 9}}));
  p.drawPolyline(QPolygonF({{20, 15}, {20, 20}, {15, 20}}));
  p.drawPolyline(QPolygonF({{9, 20}, {4, 20}, {4, 15}}));
}

/// A page below a magnifying glass.
void Preview(QPainter& p) {
  p.setBrush(Qt::white);
  p.drawRect(QRectF(4, 3, 12, 16));
  p.setPen(QPen(Readable(kBlue), 2));
  p.drawEllipse(QPointF(14, 13), 4.5, 4.5);
  p.drawLine(QLineF(17.3, 16.3, 21, 20));
}

void Printer(QPainter& p) {
  p.setBrush(Qt::white);
  p.drawRect(QRectF(7, 3, 10, 7));
  p.setBrush(kBlue.lighter(170));
  p.drawRoundedRect(QRectF(3, 9, 18, 8), 1.5, 1.5);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(7, 14, 10, 7));
  for (const double y : {16.5, 18.8}) p.drawLine(QLineF(9, y, 15, y));
}

void Close(QPainter& p) {
  p.setPen(QPen(Readable(kRed), 2.4, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QLineF(5.5, 5.5, 18.5, 18.5));
  p.drawLine(QLineF(18.5, 5.5, 5.5, 18.5));
}

}  // namespace large

// The cultivation window: on a sheet of 16 x 16 units.
namespace small {

constexpr double kSide = 16;
constexpr double kPen = 1.4;
constexpr QColor kInkOnLight(0x3A, 0x46, 0x52);

/// Dark on a light desktop, and the colour of its texts on a dark one.
QColor Ink() {
  return OnDark() ? QGuiApplication::palette().color(QPalette::ButtonText) : kInkOnLight;
}

constexpr QColor kGreen(0x1E, 0x8E, 0x3E);
constexpr QColor kRed(0xC6, 0x28, 0x28);
constexpr QColor kBlue(0x1F, 0x5F, 0xA8);

void Fill(QPainter& p, const QColor& colour, const QPolygonF& shape) {
  p.setPen(RoundPen(colour, 1));
  p.setBrush(colour);
  p.drawPolygon(shape);
}

void Back(QPainter& p) {
  p.drawLine(QLineF(3, 8, 13, 8));
  p.drawPolyline(QPolygonF({{7, 4}, {3, 8}, {7, 12}}));
}

void Previous(QPainter& p) {
  Fill(p, Ink(), {{11, 3}, {5, 8}, {11, 13}});
}

void Next(QPainter& p) {
  Fill(p, Ink(), {{5, 3}, {11, 8}, {5, 13}});
}

/// An open padlock.
void Unlock(QPainter& p) {
  p.drawArc(QRectF(2.5, 2, 6, 8), 20 * 16, 200 * 16);
  p.setBrush(Ink());
  p.drawRoundedRect(QRectF(4, 7.5, 9, 6.5), 1, 1);
}

void Confirm(QPainter& p) {
  p.setPen(RoundPen(Readable(kGreen), 2.6));
  p.drawPolyline(QPolygonF({{3, 8.5}, {6.5, 12}, {13, 4}}));
}

void Save(QPainter& p) {
  p.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1, 1);
  p.setBrush(Ink());
  p.drawRect(QRectF(5.5, 2.5, 5, 3));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(4.5, 8.5, 7, 5));
}

void Start(QPainter& p) {
  Fill(p, Readable(kGreen), {{5, 3}, {13, 8}, {5, 13}});
}

void Stop(QPainter& p) {
  Fill(p, Readable(kRed), {{4, 4}, {12, 4}, {12, 12}, {4, 12}});
}

void Clear(QPainter& p) {
  p.drawLine(QLineF(4, 4, 12, 12));
  p.drawLine(QLineF(12, 4, 4, 12));
}

/// An arrow that turns back.
void Initial(QPainter& p) {
  p.setPen(RoundPen(Readable(kBlue), 1.6));
  QPainterPath path({3, 6});
  path.lineTo(9, 6);
  path.cubicTo(14, 6, 14, 13, 9, 13);
  path.lineTo(6, 13);
  p.drawPath(path);
  p.drawPolyline(QPolygonF({{6, 3}, {3, 6}, {6, 9}}));
}

/// The same arrow mirrored.
void Forward(QPainter& p) {
  p.translate(kSide, 0);
  p.scale(-1, 1);
  Initial(p);
}

void Report(QPainter& p) {
  p.drawPolygon(QPolygonF({{4, 2}, {10, 2}, {12.5, 4.5}, {12.5, 14}, {4, 14}}));
  for (const double y : {6.0, 8.5, 11.0}) p.drawLine(QLineF(6, y, 10.5, y));
}

}  // namespace small

// In the order of Symbol.
constexpr void (*kDrawings[])(QPainter&) = {
    large::NewSheet,  large::Diskette,   large::Eraser,   large::GrowthCurve, large::Grid,
    large::Legend,    large::Bin,        large::NextStep, large::Title,       large::Range,
    large::Copy,      large::Printer,    large::Close,    large::Publication, large::Logarithm,
    large::Residuals, large::WholeChart, large::Preview,  small::Back,        small::Previous,
    small::Next,      small::Unlock,     small::Confirm,  small::Save,        small::Start,
    small::Stop,      small::Clear,      small::Initial,  small::Forward,     small::Report};
static_assert(std::size(kDrawings) == static_cast<std::size_t>(Symbol::Report) + 1);

constexpr double kPixelsOfAUnit = 4;

}  // namespace

QIcon DrawnIcon(Symbol symbol) {
  const bool isLarge = symbol < Symbol::Back;
  const double side = isLarge ? 24 : small::kSide;
  QPixmap sheet(QSizeF(side, side).toSize() * kPixelsOfAUnit);
  sheet.fill(Qt::transparent);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kPixelsOfAUnit, kPixelsOfAUnit);
  painter.setPen(isLarge ? QPen(QGuiApplication::palette().color(QPalette::ButtonText), large::kPen)
                         : RoundPen(small::Ink(), small::kPen));
  kDrawings[static_cast<std::size_t>(symbol)](painter);
  painter.end();
  return QIcon(sheet);
}

QPixmap CalmMark() {
  constexpr int kSize = 12;
  constexpr QColor kAmber(0xD0, 0x80, 0x00);
  QPixmap mark(kSize, kSize);
  mark.fill(Qt::transparent);
  QPainter painter(&mark);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kAmber);
  painter.drawPolygon(QPolygonF({QPointF(6, 1), QPointF(11.5, 11), QPointF(0.5, 11)}));
  return mark;
}

}  // namespace velmora
