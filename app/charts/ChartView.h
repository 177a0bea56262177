// One plot on the screen.
#pragma once

#include <QPoint>
#include <QWidget>

#include "app/charts/ChartPainter.h"
#include "charts/ChartContent.h"
#include "charts/FigureLayout.h"

class QHelpEvent;
class QRubberBand;

namespace velmora {

/// Which part of a chart's plane is in sight.
struct ShownPart {
  ValueRange times;
  ValueRange values;
};

/// Shows one `ChartContent`, painted anew at every size. Its owner names it ("picCx"). Where the
/// mouse rests on a measured point, a tip tells its values.
class ChartView : public QWidget {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent = nullptr);

  void SetContent(ChartContent content);
  const ChartContent& Content() const { return content_; }
  void SetStyle(const ChartStyle& style);
  /// Whether a part of the chart can be chosen by dragging and by the wheel.
  void SetNavigable(bool navigable) { navigable_ = navigable; }

  /// Where a point in user coordinates stands on the widget, and which point stands there.
  QPointF PlaceOf(const PlotPoint& point) const;
  PlotPoint PointAt(const QPointF& place) const;
  /// What the axes reach over.
  ShownPart Shown() const;
  /// How much of what is shown a box there would hide; a point weighs more than any curve.
  int HiddenBy(const QRect& box) const;
  /// The corner of the axes in which a box of this size hides least, the upper right one first.
  QRect FreestCorner(const QSize& box) const;

  QSize sizeHint() const override { return {360, 240}; }
  QSize minimumSizeHint() const override { return {200, 104}; }

 signals:
  /// Clicked with the left button.
  void Activated();
  /// Clicked twice with it.
  void EnlargementAsked();
  /// Clicked with the right button, or asked for its menu by key.
  void MenuRequested(const QPoint& globalPosition);
  /// The left button alone is pressed at `point`, in the plot's user coordinates.
  void PointedAt(const PlotPoint& point);
  /// A rectangle was drawn over this part.
  void PartChosen(const velmora::ShownPart& part);
  /// The wheel was turned at `point`: what is in sight is to be `factor` times as wide.
  void Wheeled(const PlotPoint& point, double factor);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void Point(const QMouseEvent& event);
  void ChoosePart(const QRect& rect);
  bool TellPoint(const QHelpEvent& event) const;
  /// The figure as it is laid out on the widget.
  FigureLayout Laid() const;

  ChartContent content_;
  ChartStyle style_;
  bool navigable_ = false;
  QPoint pressedAt_;
  QRubberBand* band_;
};

}  // namespace velmora
