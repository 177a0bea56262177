// The course of a search: the best score against the generation, logarithmic.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

class QPainter;

namespace velmora {

class ScoreView : public QWidget {
  Q_OBJECT

 public:
  explicit ScoreView(QWidget* parent = nullptr);

  void SetHeading(const QString& text);
  /// Begins a new course.
  void Clear();
  /// The best score of the next generation.
  void Add(double score);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintDecades(QPainter& painter, const QRectF& plot) const;
  void PaintCourse(QPainter& painter, const QRectF& plot) const;

  QString heading_;
  std::vector<double> scores_;  // element g is generation g + 1
};

}  // namespace velmora
