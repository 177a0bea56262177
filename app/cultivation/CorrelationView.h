// The correlations of a fit's estimates as a picture: a table of coloured cells.
#pragma once

#include <QWidget>

#include "report/Correlations.h"

class QPainter;

namespace velmora {

/// Blue cells for estimates that rise together, orange ones for those of which one rises as the
/// other falls, the stronger the darker; black on white whatever the desktop's colours.
class CorrelationView : public QWidget {
  Q_OBJECT

 public:
  explicit CorrelationView(QWidget* parent = nullptr);

  void SetCorrelations(Correlations correlations, char separator);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintCell(QPainter& painter, const QRectF& cell, double correlation) const;

  Correlations correlations_;
  char separator_ = '.';
};

}  // namespace velmora
