// The course of a search: the best score against the generation.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "charts/FigureTicks.h"

class QPainter;

namespace velmora {

class ScoreView : public QWidget {
  Q_OBJECT

 public:
  explicit ScoreView(QWidget* parent = nullptr);

  /// With the separator of decimals.
  void SetHeading(const QString& text, char separator);
  /// Begins a new course.
  void Clear();
  /// The best score of the next generation.
  void Add(double score);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  AxisTicks Ticks(double height) const;
  double HeightOf(double score, const AxisTicks& ticks, const QRectF& plot) const;
  void PaintTicks(QPainter& painter, const AxisTicks& ticks, const QRectF& plot) const;
  void PaintCourse(QPainter& painter, const AxisTicks& ticks, const QRectF& plot) const;

  QString heading_;
  char separator_ = '.';
  std::vector<double> scores_;  // element g is generation g + 1
};

}  // namespace velmora
