#include "app/cultivation/ScoreView.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "app/widgets/Colours.h"

namespace velmora {
namespace {

constexpr int kMargin = 6;
constexpr int kLeastHeight = 90;
constexpr int kWidestExponent = 10;
constexpr int kMostLines = 6;
constexpr double kSmallest = 1e-300;  // what a score of 0 is drawn as
constexpr QColor kLine(0x1F, 0x5F, 0xA8);

double Logarithm(double score) {
  return std::log10(std::max(score, kSmallest));
}

/// Whole powers of ten around the scores, which never rise.
struct Decades {
  int lowest;
  int highest;

  double Share(double logarithm) const { return (logarithm - lowest) / (highest - lowest); }
};

Decades DecadesOf(const std::vector<double>& scores) {
  const int lowest = static_cast<int>(std::floor(Logarithm(scores.back())));
  const int highest = static_cast<int>(std::ceil(Logarithm(scores.front())));
  return {lowest, std::max(highest, lowest + 1)};
}

QString Power(int exponent) {
  return QStringLiteral("1E%1").arg(exponent);
}

}  // namespace

ScoreView::ScoreView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picErro"));
  setMinimumHeight(kLeastHeight);
}

void ScoreView::SetHeading(const QString& text) {
  heading_ = text;
  setAccessibleName(text);
  update();
}

void ScoreView::Clear() {
  scores_.clear();
  update();
}

void ScoreView::Add(double score) {
  scores_.push_back(score);
  update();
}

void ScoreView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  painter.setPen(palette().mid().color());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const int line = painter.fontMetrics().height();
  painter.setPen(palette().text().color());
  painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, 0), Qt::AlignHCenter | Qt::AlignTop,
                   heading_);
  if (scores_.empty()) return;
  const int labels = painter.fontMetrics().horizontalAdvance(Power(-kWidestExponent));
  const QRectF plot = QRectF(rect()).adjusted(labels + 2 * kMargin, 2 * line + kMargin,
                                              -3 * kMargin, -line - kMargin);
  PaintDecades(painter, plot);
  PaintCourse(painter, plot);
}

void ScoreView::PaintDecades(QPainter& painter, const QRectF& plot) const {
  const Decades decades = DecadesOf(scores_);
  const int line = painter.fontMetrics().height();
  const int step = 1 + (decades.highest - decades.lowest) / kMostLines;
  for (int exponent = decades.lowest; exponent <= decades.highest; exponent += step) {
    const double y = plot.bottom() - plot.height() * decades.Share(exponent);
    painter.setPen(palette().mid().color());
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(palette().text().color());
    painter.drawText(QRectF(0, y - line / 2.0, plot.left() - kMargin, line),
                     Qt::AlignRight | Qt::AlignVCenter, Power(exponent));
  }
  const QRectF below(plot.left(), plot.bottom(), plot.width(), line + kMargin);
  painter.drawText(below, Qt::AlignLeft | Qt::AlignBottom, QStringLiteral("1"));
  if (scores_.size() > 1)
    painter.drawText(below, Qt::AlignRight | Qt::AlignBottom, QString::number(scores_.size()));
}

void ScoreView::PaintCourse(QPainter& painter, const QRectF& plot) const {
  const Decades decades = DecadesOf(scores_);
  const double last = std::max(static_cast<double>(scores_.size() - 1), 1.0);
  const auto add = [&](QPolygonF& line, std::size_t g) {
    line << QPointF(plot.left() + plot.width() * static_cast<double>(g) / last,
                    plot.bottom() - plot.height() * decades.Share(Logarithm(scores_[g])));
  };
  // One point a pixel is enough, however long the search.
  const std::size_t stride = 1 + scores_.size() / static_cast<std::size_t>(std::max(width(), 1));
  QPolygonF course;
  for (std::size_t g = 0; g < scores_.size(); g += stride) add(course, g);
  add(course, scores_.size() - 1);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor line = Readable(kLine, QPalette::Base);
  painter.setPen(QPen(line, 1.6));
  painter.drawPolyline(course);
  painter.setBrush(line);
  painter.drawEllipse(course.back(), 2.5, 2.5);
}

}  // namespace velmora
