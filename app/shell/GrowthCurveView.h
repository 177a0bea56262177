// A small drawing of a batch cultivation: the cells grow while the substrate is used up.
#pragma once

#include <QIcon>
#include <QWidget>

class QPainter;

namespace velmora {

/// Draws axes, both curves and some measured points into `frame`.
void PaintGrowthCurve(QPainter& painter, const QRectF& frame);

/// The drawing as the program's icon.
QIcon GrowthCurveIcon();

class GrowthCurveView : public QWidget {
  Q_OBJECT

 public:
  explicit GrowthCurveView(QWidget* parent = nullptr);
  QSize sizeHint() const override { return {220, 180}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
