#include "app/charts/ChartView.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace velmora {

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  content_.scale = Escala({}, content_.variable, '.');
}

void ChartView::SetContent(ChartContent content) {
  content_ = std::move(content);
  update();
}

void ChartView::SetStyle(const ChartStyle& style) {
  style_ = style;
  update();
}

void ChartView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintChart(painter, rect(), content_, style_);
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit Activated();
  Point(*event);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  Point(*event);
}

void ChartView::Point(const QMouseEvent& event) {
  const QRectF paper = rect();
  if (event.buttons() == Qt::LeftButton && paper.contains(event.position()))
    emit PointedAt(FromPaper(content_.scale, paper, event.position()));
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
  emit MenuRequested(event->globalPos());
}

}  // namespace velmora
