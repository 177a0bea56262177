#include "charts/ChartView.h"

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
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
  emit MenuRequested(event->globalPos());
}

}  // namespace velmora
