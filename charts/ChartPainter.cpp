#include "charts/ChartPainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPolygonF>
#include <QVector>
#include <algorithm>
#include <cmath>
#include <optional>

#include "charts/Markers.h"
#include "data/Class1.h"

namespace velmora {
namespace {

constexpr QRgb kBlack = qRgb(0, 0, 0);
constexpr QRgb kGridColour = qRgb(0xC0, 0xC0, 0xC0);

// Sizes in units.
constexpr double kDotWidth = 6;
constexpr double kMarkerWidth = 10;
constexpr double kSameDot = 0.5;    // a dot nearer to the one before adds nothing
constexpr double kLabelToAxis = 4;  // between a concentration label and its axis
constexpr double kLeastFontHeight = 6;

/// The user coordinates of the paper's edges. An axis without length (no product was formed) is
/// given the length 1, so that the other one stands at its usual place, in sight.
struct Window {
  double left, right, top, bottom;
};

bool HasWidth(const PlotScale& scale) {
  return scale.Xmax > scale.origin;
}
bool HasHeight(const PlotScale& scale) {
  return scale.Ymax > 0;
}

Window WindowOf(const PlotScale& scale) {
  Window window{scale.upperLeft.x, scale.lowerRight.x, scale.upperLeft.y, scale.lowerRight.y};
  if (!HasWidth(scale)) window.left = scale.origin - 0.2, window.right = scale.origin + 1.1;
  if (!HasHeight(scale)) window.top = 1.2, window.bottom = -0.2;
  return window;
}

bool Finite(const QLineF& line) {
  return std::isfinite(line.x1()) && std::isfinite(line.y1()) && std::isfinite(line.dx()) &&
         std::isfinite(line.dy());
}

/// The part of `line` inside `frame` (Liang and Barsky, 1984): a line that ends far outside would
/// overflow the painter's own arithmetic.
std::optional<QLineF> Cut(const QLineF& line, const QRectF& frame) {
  if (!Finite(line)) return std::nullopt;
  const double towards[] = {-line.dx(), line.dx(), -line.dy(), line.dy()};
  const double room[] = {line.x1() - frame.left(), frame.right() - line.x1(),
                         line.y1() - frame.top(), frame.bottom() - line.y1()};
  double from = 0, to = 1;
  for (int edge = 0; edge < 4; ++edge) {
    if (towards[edge] < 0) from = std::max(from, room[edge] / towards[edge]);
    if (towards[edge] > 0) to = std::min(to, room[edge] / towards[edge]);
    if (towards[edge] == 0 && room[edge] < 0) return std::nullopt;
  }
  if (from > to) return std::nullopt;
  return QLineF(from == 0 ? line.p1() : line.pointAt(from), to == 1 ? line.p2() : line.pointAt(to));
}

/// The least of 1, 2, 5, 10, 20, ... steps between labels that is at least `wanted` steps.
std::size_t LabelStride(double wanted) {
  for (std::size_t decade = 1;; decade *= 10)
    for (const std::size_t stride : {decade, 2 * decade, 5 * decade})
      if (!(static_cast<double>(stride) < wanted) || decade >= 100000) return stride;
}

bool HasColour(std::int32_t number) {
  return number >= 1 && number <= static_cast<std::int32_t>(kColours.size());
}

double WidestOf(const std::vector<PlotLabel>& labels, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const PlotLabel& label : labels)
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label.text)));
  return widest;
}

/// The paper, the user coordinates on it, and the size of its letters.
class Sheet {
 public:
  Sheet(QPainter& painter, const QRectF& paper, const ChartContent& content,
        const ChartStyle& style)
      : painter_(painter), paper_(paper), content_(content), style_(style) {
    SetFontHeight(FontHeight());
  }

  void Paint() {
    painter_.setClipRect(paper_, Qt::IntersectClip);
    painter_.fillRect(paper_, Qt::white);
    PaintAxes();
    PaintTimeLabels();
    PaintConcentrationLabels();
    PaintTitle();
    PaintPoints();
    PaintCurves();
  }

 private:
  const PlotScale& Scale() const { return content_.scale; }
  double Units(double count) const { return count * style_.unit; }
  QPointF At(const PlotPoint& point) const { return ToPaper(Scale(), paper_, point); }
  QPointF Origin() const { return At({Scale().origin, 0}); }

  double FontHeight() const {
    if (style_.fontHeight > 0) return Units(style_.fontHeight);
    const double suited = std::min(paper_.height() * 0.055, paper_.width() * 0.036);
    return std::clamp(suited, Units(9), Units(17));
  }

  void SetFontHeight(double height) {
    QFont font = painter_.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(height))));
    painter_.setFont(font);
  }

  QFontMetricsF Metrics() const { return QFontMetricsF(painter_.font(), painter_.device()); }
  static double LineHeight(const QFontMetricsF& metrics) {
    return metrics.ascent() + metrics.descent();
  }

  QPen ThinPen(QRgb colour, Qt::PenStyle style) const {
    return QPen(QColor(colour), Units(1), style,
                style == Qt::SolidLine ? Qt::RoundCap : Qt::FlatCap);
  }

  void PaintAxes() {
    if (content_.gridLines) PaintLines(Scale().gridLines, kGridColour, Qt::DotLine);
    PaintLines(Scale().axes, kBlack, Qt::SolidLine);
    PaintLines(Scale().ticks, kBlack, Qt::SolidLine);
  }

  void PaintLines(const std::vector<PlotLine>& lines, QRgb colour, Qt::PenStyle style) {
    QVector<QLineF> onPaper;
    onPaper.reserve(static_cast<qsizetype>(lines.size()));
    for (const PlotLine& line : lines) onPaper.append(QLineF(At(line.from), At(line.to)));
    painter_.setPen(ThinPen(colour, style));
    painter_.drawLines(onPaper);
  }

  /// The label at 0 begins at its tick, so that it keeps clear of the other axis's labels; the
  /// others are centred. Where all would touch each other, every second, fifth, ... is left.
  void PaintTimeLabels() {
    const std::vector<PlotLabel>& labels = Scale().timeLabels;
    if (labels.empty()) return PaintTimeTitle(Origin().y());
    const QFontMetricsF metrics = Metrics();
    const double first = metrics.horizontalAdvance(QString::fromStdString(labels.front().text));
    const double widest = WidestOf(labels, metrics);
    const double gap = metrics.horizontalAdvance(QLatin1Char('0')) / 2;
    const double step = At({Scale().origin + Scale().stepX, 0}).x() - Origin().x();
    const std::size_t stride = LabelStride((std::max(widest, first + widest / 2) + gap) / step);
    for (std::size_t i = 0; i < labels.size(); i += stride) {
      const QString text = QString::fromStdString(labels[i].text);
      const QPointF at = At(labels[i].at);
      const double left = i == 0 ? at.x() : at.x() - metrics.horizontalAdvance(text) / 2;
      painter_.drawText(QPointF(left, at.y() + metrics.ascent()), text);
    }
    PaintTimeTitle(At(labels.front().at).y() + LineHeight(metrics));
  }

  /// "t (h)", below the labels.
  void PaintTimeTitle(double labelsBottom) {
    const QFontMetricsF metrics = Metrics();
    const QPointF at = At({HasWidth(Scale()) ? Scale().timeTitleAt.x : Scale().origin + 0.47,
                           HasHeight(Scale()) ? Scale().timeTitleAt.y : -0.1});
    const double lowest = paper_.bottom() - LineHeight(metrics);
    const double top = std::min(std::max(at.y(), labelsBottom), lowest);
    painter_.drawText(QPointF(at.x(), top + metrics.ascent()), QStringLiteral("t (h)"));
  }

  /// Labels end left of the axis, also where they are wider than their place, and stand beside
  /// their tick. The plot's own title keeps its room: long labels are written smaller.
  void PaintConcentrationLabels() {
    const double usual = painter_.font().pixelSize();
    const double axis = Origin().x() - Units(kLabelToAxis);
    const double titleWidth = LineHeight(Metrics()) + Units(3);
    const double room = std::max(axis - paper_.left() - titleWidth, 1.0);
    const double widest = WidestOf(Scale().concentrationLabels, Metrics());
    if (widest > room)
      SetFontHeight(std::max(std::floor(usual * room / widest), Units(kLeastFontHeight)));
    const double left = PaintConcentrationLabels(axis);
    SetFontHeight(usual);
    PaintVariable(left - titleWidth);
  }

  /// Returns where the leftmost of the labels begins.
  double PaintConcentrationLabels(double axis) {
    const std::vector<PlotLabel>& labels = Scale().concentrationLabels;
    const QFontMetricsF metrics = Metrics();
    const double height = LineHeight(metrics);
    const double step = Origin().y() - At({Scale().origin, Scale().stepY}).y();
    double leftmost = axis;
    for (std::size_t i = 0; i < labels.size(); i += LabelStride(height / step)) {
      const QString text = QString::fromStdString(labels[i].text);
      const QPointF at = At(labels[i].at);
      const double tick = Origin().y() - static_cast<double>(i) * step;
      const double left = std::min(at.x(), axis - metrics.horizontalAdvance(text));
      const double middle = tick - height / 2;
      const double top = HasHeight(Scale()) ? std::max(at.y(), middle) : middle;
      painter_.drawText(QPointF(left, top + metrics.ascent()), text);
      leftmost = std::min(leftmost, left);
    }
    return leftmost;
  }

  /// The variable's name, upwards along its axis; its left edge stands at `most` or farther left.
  void PaintVariable(double most) {
    const QFontMetricsF metrics = Metrics();
    const QPointF at = At({HasWidth(Scale()) ? Scale().titleAt.x : Scale().origin - 0.17,
                           HasHeight(Scale()) ? Scale().titleAt.y : 1.15 / 3});
    const double left = std::max(paper_.left() + Units(1), std::min(at.x(), most));
    painter_.save();
    painter_.translate(left + metrics.ascent(), at.y());
    painter_.rotate(-90);
    painter_.drawText(QPointF(0, 0), QString::fromStdString(PlotTitle(content_.variable)));
    painter_.restore();
  }

  /// The user's title, in the middle of the room above the axes.
  void PaintTitle() {
    if (content_.title.empty()) return;
    const double top = At({Scale().origin, HasHeight(Scale()) ? Scale().Ymax : 1}).y();
    const QRectF room(paper_.left(), paper_.top(), paper_.width(), top - paper_.top());
    painter_.save();
    QFont font = painter_.font();
    font.setFamilies({QStringLiteral("MS Sans Serif"), font.family()});
    painter_.setFont(font);
    SetFontHeight(font.pixelSize() * 1.25);
    const QString text = Metrics().elidedText(QString::fromStdString(content_.title),
                                              Qt::ElideRight, room.width() - Units(8));
    painter_.drawText(room, Qt::AlignCenter, text);
    painter_.restore();
  }

  /// An unknown colour is that of what was drawn before.
  void PaintPoints() {
    QColor colour = Qt::black;
    for (const PlottedExperiment& experiment : content_.experiments) {
      if (!experiment.visible) continue;
      if (HasColour(experiment.colour)) colour = ColourOf(experiment.colour);
      PaintPoints(experiment, colour);
    }
  }

  void PaintPoints(const PlottedExperiment& experiment, const QColor& colour) {
    const double reach = Units(kMarkerWidth);
    const QRectF near = paper_.adjusted(-reach, -reach, reach, reach);
    QPolygonF centres;
    centres.reserve(static_cast<qsizetype>(experiment.points.size()));
    for (const PlotPoint& point : experiment.points) {
      const QPointF at = At(point);
      if (!near.contains(at)) continue;
      if (centres.isEmpty() || (at - centres.last()).manhattanLength() >= Units(kSameDot))
        centres.append(at);
    }
    if (style_.points == PointStyle::Dots)
      DrawDots(painter_, centres, Units(kDotWidth), colour);
    else
      DrawMarkers(painter_, experiment.marker, centres, Units(kMarkerWidth), colour, Units(1.5));
  }

  /// Curves may leave the axes (a model that overshoots); the paper's edge cuts them.
  void PaintCurves() {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setBrush(Qt::NoBrush);
    for (const PlottedExperiment& experiment : content_.experiments) {
      painter_.setPen(ThinPen(kBlack, PenStyleOf(experiment.line)));
      PaintCurve(experiment.curve);
    }
  }

  /// One line through all points between two places where the curve leaves the paper, so that dots
  /// and dashes run on from segment to segment.
  void PaintCurve(const std::vector<PlotPoint>& curve) {
    const QRectF frame = paper_.adjusted(-Units(2), -Units(2), Units(2), Units(2));
    QPolygonF piece;
    for (std::size_t k = 1; k < curve.size(); ++k) {
      const auto segment = Cut(QLineF(At(curve[k - 1]), At(curve[k])), frame);
      if (!segment) continue;
      if (piece.isEmpty() || piece.last() != segment->p1()) {
        painter_.drawPolyline(piece);
        piece = {segment->p1()};
      }
      piece.append(segment->p2());
    }
    painter_.drawPolyline(piece);
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
  const Window window = WindowOf(scale);
  const double x = Share(point.x - window.left, window.right - window.left);
  const double y = Share(window.top - point.y, window.top - window.bottom);
  return {paper.left() + x * paper.width(), paper.top() + y * paper.height()};
}

PlotPoint FromPaper(const PlotScale& scale, const QRectF& paper, const QPointF& position) {
  const Window window = WindowOf(scale);
  const double x = Share(position.x() - paper.left(), paper.width());
  const double y = Share(position.y() - paper.top(), paper.height());
  return {window.left + x * (window.right - window.left),
          window.top - y * (window.top - window.bottom)};
}

void PaintChart(QPainter& painter, const QRectF& paper, const ChartContent& content,
                const ChartStyle& style) {
  painter.save();
  Sheet(painter, paper, content, style).Paint();
  painter.restore();
}

}  // namespace velmora
