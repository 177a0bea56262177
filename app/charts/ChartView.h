// One plot on the screen.
#pragma once

#include <QPoint>
#include <QWidget>

#include "app/charts/ChartPainter.h"
#include "charts/ChartContent.h"

namespace velmora {

/// Shows one `ChartContent`, painted anew at every size. Its owner names it ("picCx").
class ChartView : public QWidget {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent = nullptr);

  void SetContent(ChartContent content);
  const ChartContent& Content() const { return content_; }
  void SetStyle(const ChartStyle& style);

  QSize sizeHint() const override { return {360, 240}; }
  QSize minimumSizeHint() const override { return {200, 140}; }

 signals:
  /// Clicked with the left button.
  void Activated();
  /// Clicked with the right button, or asked for its menu by key.
  void MenuRequested(const QPoint& globalPosition);
  /// The left button alone is pressed at `point`, in the plot's user coordinates.
  void PointedAt(const PlotPoint& point);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void Point(const QMouseEvent& event);

  ChartContent content_;
  ChartStyle style_;
};

}  // namespace velmora
