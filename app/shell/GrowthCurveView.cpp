#include "app/shell/GrowthCurveView.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>
#include <cmath>

namespace velmora {
namespace {

const QColor kCells(0x1F, 0x7A, 0x4D);
const QColor kSubstrate(0xC7, 0x6A, 0x1B);
const QColor kAxis(0x55, 0x5F, 0x66);

/// Logistic growth from 0.05 to 1 over a time from 0 to 1.
double CellsAt(double time) {
  constexpr double kStart = 0.05, kRate = 9;
  return 1 / (1 + (1 / kStart - 1) * std::exp(-kRate * time));
}

/// What growth at a constant yield leaves of the substrate.
double SubstrateAt(double time) {
  return 1 - CellsAt(time);
}

QPointF Placed(const QRectF& plot, double time, double value) {
  return {plot.left() + time * plot.width(), plot.bottom() - 0.92 * value * plot.height()};
}

template <typename Curve>
void PaintCurve(QPainter& painter, const QRectF& plot, Curve valueAt, const QColor& colour,
                double width) {
  constexpr int kSteps = 60;
  QPainterPath path(Placed(plot, 0, valueAt(0.0)));
  for (int step = 1; step <= kSteps; ++step) {
    const double time = static_cast<double>(step) / kSteps;
    path.lineTo(Placed(plot, time, valueAt(time)));
  }
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(path);
}

struct Sample {
  double time;
  double offset;  // what measuring adds to the curve
};
constexpr std::array<Sample, 6> kSamples = {
    {{0.08, 0.02}, {0.24, -0.03}, {0.4, 0.03}, {0.56, -0.03}, {0.74, 0.02}, {0.92, -0.01}}};

template <typename Curve>
void PaintSamples(QPainter& painter, const QRectF& plot, Curve valueAt, const QColor& colour,
                  double radius) {
  painter.setPen(QPen(colour, radius / 2));
  painter.setBrush(Qt::white);
  for (const Sample& sample : kSamples)
    painter.drawEllipse(Placed(plot, sample.time, valueAt(sample.time) + sample.offset), radius,
                        radius);
}

void PaintAxes(QPainter& painter, const QRectF& plot, double width) {
  painter.setPen(QPen(kAxis, width, Qt::SolidLine, Qt::SquareCap));
  painter.drawLine(plot.topLeft(), plot.bottomLeft());
  painter.drawLine(plot.bottomLeft(), plot.bottomRight());
}

}  // namespace

void PaintGrowthCurve(QPainter& painter, const QRectF& frame) {
  const double unit = std::min(frame.width(), frame.height()) / 100;
  const QRectF plot = frame.adjusted(9 * unit, 8 * unit, -8 * unit, -9 * unit);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintAxes(painter, plot, 2 * unit);
  PaintCurve(painter, plot, SubstrateAt, kSubstrate, 3.5 * unit);
  PaintCurve(painter, plot, CellsAt, kCells, 3.5 * unit);
  PaintSamples(painter, plot, SubstrateAt, kSubstrate, 3 * unit);
  PaintSamples(painter, plot, CellsAt, kCells, 3 * unit);
}

QIcon GrowthCurveIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(picture.rect(), size / 8.0, size / 8.0);
    PaintGrowthCurve(painter, picture.rect());
    icon.addPixmap(picture);
  }
  return icon;
}

GrowthCurveView::GrowthCurveView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picCurva"));
  setMinimumSize(sizeHint());
}

void GrowthCurveView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  PaintGrowthCurve(painter, rect());
}

}  // namespace velmora
