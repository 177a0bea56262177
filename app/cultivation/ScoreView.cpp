#include "app/cultivation/ScoreView.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "app/widgets/Colours.h"

namespace velmora {
namespace {

constexpr int kMargin = 6;
constexpr int kLeastHeight = 90;
constexpr double kLinesPerLabel = 1.5;
constexpr double kSmallest = 1e-300;  // what a score of 0 is drawn as
constexpr double kDecade = 10;        // from which on scores are drawn by their logarithms
constexpr QColor kLine(0x1F, 0x5F, 0xA8);

/// Of scores, which never rise.
FigureAxis AxisOf(const std::vector<double>& scores) {
  const double least = std::max(scores.back(), kSmallest);
  const double most = std::max(scores.front(), least);
  return {{}, {least, most}, false, most >= kDecade * least};
}

}  // namespace

ScoreView::ScoreView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picErro"));
  setMinimumHeight(kLeastHeight);
}

void ScoreView::SetHeading(const QString& text, char separator) {
  heading_ = text;
  separator_ = separator;
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

AxisTicks ScoreView::Ticks(double height) const {
  const double line = kLinesPerLabel * fontMetrics().height();
  return TicksOf(AxisOf(scores_), static_cast<int>(height / line) + 1, separator_);
}

double ScoreView::HeightOf(double score, const AxisTicks& ticks, const QRectF& plot) const {
  const bool logarithmic = AxisOf(scores_).logarithmic;
  const auto shown = [&](double value) { return logarithmic ? std::log10(value) : value; };
  const double from = shown(ticks.range.from), to = shown(ticks.range.to);
  return plot.bottom() - plot.height() * (shown(std::max(score, kSmallest)) - from) / (to - from);
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
  QRectF plot =
      QRectF(rect()).adjusted(2 * kMargin, 2 * line + kMargin, -3 * kMargin, -line - kMargin);
  const AxisTicks ticks = Ticks(plot.height());
  int labels = 0;
  for (const Tick& tick : ticks.ticks)
    labels = std::max(labels,
                      painter.fontMetrics().horizontalAdvance(QString::fromStdString(tick.text)));
  plot.setLeft(plot.left() + labels);
  PaintTicks(painter, ticks, plot);
  PaintCourse(painter, ticks, plot);
}

void ScoreView::PaintTicks(QPainter& painter, const AxisTicks& ticks, const QRectF& plot) const {
  const int line = painter.fontMetrics().height();
  for (const auto& [at, text] : ticks.ticks) {
    if (text.empty()) continue;
    const double y = HeightOf(at, ticks, plot);
    painter.setPen(palette().mid().color());
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(palette().text().color());
    painter.drawText(QRectF(0, y - line / 2.0, plot.left() - kMargin, line),
                     Qt::AlignRight | Qt::AlignVCenter, QString::fromStdString(text));
  }
  const QRectF below(plot.left(), plot.bottom(), plot.width(), line + kMargin);
  painter.drawText(below, Qt::AlignLeft | Qt::AlignBottom, QStringLiteral("1"));
  if (scores_.size() > 1)
    painter.drawText(below, Qt::AlignRight | Qt::AlignBottom, QString::number(scores_.size()));
}

void ScoreView::PaintCourse(QPainter& painter, const AxisTicks& ticks, const QRectF& plot) const {
  const double last = std::max(static_cast<double>(scores_.size() - 1), 1.0);
  const auto add = [&](QPolygonF& line, std::size_t g) {
    line << QPointF(plot.left() + plot.width() * static_cast<double>(g) / last,
                    HeightOf(scores_[g], ticks, plot));
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
