#include "app/cultivation/CorrelationView.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/cultivation/FormEntry.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kLeastCell = 46, kMostCell = 110;  // px
constexpr QColor kTogether(0x00, 0x72, 0xB2), kAgainst(0xD5, 0x5E, 0x00);
constexpr double kDarkest = 0.75;  // the share of the colour; figures in it stay readable

QColor Shade(double correlation) {
  const QColor& colour = correlation < 0 ? kAgainst : kTogether;
  const double share = kDarkest * std::min(std::fabs(correlation), 1.0);
  const auto mix = [share](int part) {
    return static_cast<int>(std::lround(255 + share * (part - 255)));
  };
  return {mix(colour.red()), mix(colour.green()), mix(colour.blue())};
}

}  // namespace

CorrelationView::CorrelationView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picCorrelacao"));
  setFocusPolicy(Qt::TabFocus);
}

void CorrelationView::SetCorrelations(Correlations correlations, char separator) {
  correlations_ = std::move(correlations);
  separator_ = separator;
  updateGeometry();
  update();
}

QSize CorrelationView::minimumSizeHint() const {
  const int cells = static_cast<int>(correlations_.parameters.size()) + 1;
  return {cells * kLeastCell, cells * kLeastCell};
}

void CorrelationView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  const std::size_t count = correlations_.parameters.size();
  if (count == 0) return;
  const double side =
      std::min<double>(std::min(width(), height()) / (static_cast<double>(count) + 1), kMostCell);
  const auto cell = [side](std::size_t row, std::size_t column) {
    return QRectF(static_cast<double>(column) * side, static_cast<double>(row) * side, side, side);
  };
  painter.setPen(Qt::black);
  for (std::size_t i = 0; i < count; ++i) {
    const QString symbol = SpokenName(correlations_.parameters[i]);
    painter.drawText(cell(0, i + 1), Qt::AlignCenter, symbol);
    painter.drawText(cell(i + 1, 0), Qt::AlignCenter, symbol);
    for (std::size_t j = 0; j < count; ++j)
      PaintCell(painter, cell(i + 1, j + 1), correlations_.Between(i, j));
  }
}

void CorrelationView::PaintCell(QPainter& painter, const QRectF& cell, double correlation) const {
  constexpr double kGap = 1;
  constexpr int kDecimals = 2;
  const QRectF inside = cell.adjusted(kGap, kGap, -kGap, -kGap);
  painter.fillRect(inside, Shade(correlation));
  painter.drawText(
      inside, Qt::AlignCenter,
      QString::fromStdString(Formatted(correlation, {kDecimals, kDecimals}, separator_)));
}

}  // namespace velmora
