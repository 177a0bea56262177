#include "charts/ChartPainter.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QVector>
#include <algorithm>
#include <cmath>

#include "charts/Markers.h"

namespace velmora {
namespace {

constexpr QRgb kGridColour = qRgb(0xC0, 0xC0, 0xC0);
constexpr double kDotWidth = 6;      // of a measured point, in units
constexpr double kMarkerWidth = 10;  // of a marker figure, in units
constexpr double kSameDot = 0.5;     // in units: a dot nearer to the one before adds nothing
constexpr double kFarAway = 1e6;     // beyond this a paper coordinate is as good as infinite

/// The paper, the user coordinates on it, and the size of its letters.
class Sheet {
 public:
  Sheet(QPainter& painter, const QRectF& paper, const ChartContent& content,
        const ChartStyle& style)
      : painter_(painter), paper_(paper), content_(content), style_(style) {
    QFont font = painter.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(FontHeight()))));
    painter.setFont(font);
  }

  void Paint() {
    painter_.fillRect(paper_, Qt::white);
    if (content_.gridLines) PaintLines(content_.scale.gridLines, kGridColour, Qt::DotLine);
    PaintCurves();
    PaintLines(content_.scale.axes, qRgb(0, 0, 0), Qt::SolidLine);
    PaintLines(content_.scale.ticks, qRgb(0, 0, 0), Qt::SolidLine);
    PaintPoints();
    painter_.setPen(Qt::black);
    PaintTimeLabels();
    PaintConcentrationLabels();
    PaintTitles();
  }

 private:
  double FontHeight() const {
    if (style_.fontHeight > 0) return style_.fontHeight * style_.unit;
    const double suited = std::min(paper_.height() * 0.055, paper_.width() * 0.036);
    return std::clamp(suited, 9 * style_.unit, 17 * style_.unit);
  }

  QPointF At(const PlotPoint& point) const { return ToPaper(content_.scale, paper_, point); }

  static bool Near(const QPointF& point) {
    return std::fabs(point.x()) < kFarAway && std::fabs(point.y()) < kFarAway;
  }

  QPen Pen(const QColor& colour, double width, Qt::PenStyle style) const {
    QPen pen(colour, width * style_.unit, style);
    if (style == Qt::SolidLine) pen.setCapStyle(Qt::RoundCap);
    return pen;
  }

  void PaintLines(const std::vector<PlotLine>& lines, QRgb colour, Qt::PenStyle style) {
    QVector<QLineF> onPaper;
    onPaper.reserve(static_cast<qsizetype>(lines.size()));
    for (const PlotLine& line : lines) onPaper.append(QLineF(At(line.from), At(line.to)));
    painter_.setPen(Pen(QColor(colour), 1, style));
    painter_.drawLines(onPaper);
  }

  /// Curves may leave the axes (a model that overshoots); the paper's edge cuts them.
  void PaintCurves() {
    painter_.save();
    painter_.setClipRect(paper_, Qt::IntersectClip);
    painter_.setRenderHint(QPainter::Antialiasing);
    for (const PlottedExperiment& experiment : content_.experiments) {
      painter_.setPen(Pen(Qt::black, 1, PenStyleOf(experiment.line)));
      PaintCurve(experiment.curve);
    }
    painter_.restore();
  }

  void PaintCurve(const std::vector<PlotPoint>& curve) {
    QPolygonF piece;
    const auto finish = [&] {
      if (piece.size() > 1) painter_.drawPolyline(piece);
      piece.clear();
    };
    for (const PlotPoint& point : curve) {
      const QPointF at = At(point);
      if (Near(at))
        piece.append(at);
      else
        finish();
    }
    finish();
  }

  void PaintPoints() {
    painter_.save();
    painter_.setClipRect(paper_, Qt::IntersectClip);
    painter_.setRenderHint(QPainter::Antialiasing);
    QColor colour = Qt::black;
    for (const PlottedExperiment& experiment : content_.experiments) {
      const bool known = experiment.colour >= 1 && experiment.colour <= 6;
      if (known) colour = ColourOf(experiment.colour);
      if (style_.points == PointStyle::Dots)
        PaintDots(experiment.points, colour);
      else
        PaintMarkers(experiment, colour);
    }
    painter_.restore();
  }

  void PaintDots(const std::vector<PlotPoint>& points, const QColor& colour) {
    QPolygonF dots;
    dots.reserve(static_cast<qsizetype>(points.size()));
    for (const PlotPoint& point : points) {
      const QPointF at = At(point);
      const bool hidden =
          !dots.isEmpty() && (at - dots.last()).manhattanLength() < kSameDot * style_.unit;
      if (Near(at) && !hidden) dots.append(at);
    }
    painter_.setPen(Pen(colour, kDotWidth, Qt::SolidLine));
    painter_.drawPoints(dots);
  }

  void PaintMarkers(const PlottedExperiment& experiment, const QColor& colour) {
    for (const PlotPoint& point : experiment.points)
      if (const QPointF at = At(point); Near(at))
        DrawMarker(painter_, experiment.marker, at, kMarkerWidth * style_.unit, colour,
                   1.5 * style_.unit);
  }

  /// The label at 0 begins at its tick, so that it keeps clear of the other axis's labels; the
  /// others are centred. One that would touch the label before it is left out.
  void PaintTimeLabels() {
    const QFontMetricsF metrics(painter_.font(), painter_.device());
    double freeFrom = paper_.left();
    for (std::size_t i = 0; i < content_.scale.timeLabels.size(); ++i) {
      const PlotLabel& label = content_.scale.timeLabels[i];
      const QString text = QString::fromStdString(label.text);
      const QPointF at = At(label.at);
      const double width = metrics.horizontalAdvance(text);
      const double left = i == 0 ? at.x() : at.x() - width / 2;
      if (left < freeFrom || left + width > paper_.right()) continue;
      painter_.drawText(QPointF(left, at.y() + metrics.ascent()), text);
      freeFrom = left + width + metrics.horizontalAdvance(QLatin1Char('0')) / 2;
    }
  }

  /// Labels end left of the axis, also where they are wider than their place; none stands wholly
  /// above its tick, nor on the one below it.
  void PaintConcentrationLabels() {
    const QFontMetricsF metrics(painter_.font(), painter_.device());
    const double height = metrics.ascent() + metrics.descent();
    const double axis = At({content_.scale.origin, 0}).x() - 4 * style_.unit;
    double freeBelow = paper_.bottom();
    for (std::size_t i = 0; i < content_.scale.concentrationLabels.size(); ++i) {
      const PlotLabel& label = content_.scale.concentrationLabels[i];
      const QString text = QString::fromStdString(label.text);
      const double tick = At({0, static_cast<double>(i) * content_.scale.stepY}).y();
      const double top = std::max(At(label.at).y(), tick - height / 2);
      const double left = std::min(At(label.at).x(), axis - metrics.horizontalAdvance(text));
      if (top + height > freeBelow || top < paper_.top()) continue;
      painter_.drawText(QPointF(left, top + metrics.ascent()), text);
      freeBelow = top;
    }
  }

  void PaintTitles() {
    const QFontMetricsF metrics(painter_.font(), painter_.device());
    const double height = metrics.ascent() + metrics.descent();
    const bool labelled = !content_.scale.timeLabels.empty();
    const double labels = labelled ? At({content_.scale.origin, 0}).y() + height : paper_.top();
    const QPointF time = TitleAt(content_.scale.timeTitleAt, {0.47, -0.1});
    const double top = std::min(std::max(time.y(), labels), paper_.bottom() - height);
    painter_.drawText(QPointF(time.x(), top + metrics.ascent()), QStringLiteral("t (h)"));

    const QPointF title = TitleAt(content_.scale.titleAt, {-0.17, 1.15 / 3});
    const double left = std::max(paper_.left() + 1, std::min(title.x(), LabelsLeft() - height));
    painter_.save();
    painter_.translate(left + metrics.ascent(), title.y());
    painter_.rotate(-90);
    painter_.drawText(QPointF(0, 0), QString::fromStdString(PlotTitle(content_.variable)));
    painter_.restore();
  }

  /// Where a title stands; `share` is its place in shares of the axes. On a plot without data,
  /// whose axes have no length, it stands where it will stand with data.
  QPointF TitleAt(const PlotPoint& point, const PlotPoint& share) const {
    PlotScale unit;
    unit.upperLeft = {-0.2, 1.2};
    unit.lowerRight = {1.1, -0.2};
    const bool flat = content_.scale.Xmax == content_.scale.origin || content_.scale.Ymax == 0;
    return flat ? ToPaper(unit, paper_, share) : At(point);
  }

  double LabelsLeft() const {
    const QFontMetricsF metrics(painter_.font(), painter_.device());
    double left = paper_.right();
    for (const PlotLabel& label : content_.scale.concentrationLabels)
      left = std::min(left, At({content_.scale.origin, 0}).x() - 4 * style_.unit -
                                metrics.horizontalAdvance(QString::fromStdString(label.text)));
    return left - 2 * style_.unit;
  }

  QPainter& painter_;
  QRectF paper_;
  const ChartContent& content_;
  const ChartStyle& style_;
};

/// The share of a distance; 0 where the whole has no width.
double Share(double part, double whole) {
  return whole == 0 ? 0 : part / whole;
}

}  // namespace

QPointF ToPaper(const PlotScale& scale, const QRectF& paper, const PlotPoint& point) {
  const double x = Share(point.x - scale.upperLeft.x, scale.lowerRight.x - scale.upperLeft.x);
  const double y = Share(scale.upperLeft.y - point.y, scale.upperLeft.y - scale.lowerRight.y);
  return {paper.left() + x * paper.width(), paper.top() + y * paper.height()};
}

PlotPoint FromPaper(const PlotScale& scale, const QRectF& paper, const QPointF& position) {
  const double x = Share(position.x() - paper.left(), paper.width());
  const double y = Share(position.y() - paper.top(), paper.height());
  return {scale.upperLeft.x + x * (scale.lowerRight.x - scale.upperLeft.x),
          scale.upperLeft.y - y * (scale.upperLeft.y - scale.lowerRight.y)};
}

void PaintChart(QPainter& painter, const QRectF& paper, const ChartContent& content,
                const ChartStyle& style) {
  painter.save();
  Sheet(painter, paper, content, style).Paint();
  painter.restore();
}

}  // namespace velmora
