#include "app/charts/ChartView.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QImage>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "language/Numbers.h"

namespace velmora {
namespace {

// Pixels.
constexpr int kLeastRectangle = 8;  // a shorter one is a click with an unsteady hand
constexpr double kNearPoint = 10;
constexpr int kAroundBox = 12;

constexpr double kWheelStep = 1.25;
constexpr double kAnglePerStep = 120;  // of a usual wheel, eighths of a degree

constexpr int kTipDigits = 6;

/// What the tip says of a point: whose it is, and its values with the axes' titles.
struct Told {
  std::string name, xTitle, yTitle;
  PlotPoint point;
};

/// Calls `visit` with every measured point that the chart shows.
template <class Visit>
void ForEachPoint(const ChartContent& content, Visit visit) {
  if (content.figure) {
    for (const FigureSeries& series : content.figure->series)
      for (const PlotPoint& point : series.points)
        visit(Told{series.name, content.figure->x.title, content.figure->y.title, point});
    return;
  }
  for (const PlottedExperiment& experiment : content.experiments)
    for (const PlotPoint& point : experiment.points)
      visit(Told{"Exp. " + std::to_string(experiment.number), "t (h)", PlotTitle(content.variable),
                 point});
}

ValueRange Ordered(double a, double b) {
  return {std::min(a, b), std::max(a, b)};
}

}  // namespace

ChartView::ChartView(QWidget* parent)
    : QWidget(parent), band_(new QRubberBand(QRubberBand::Rectangle, this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  content_.scale = Escala({}, content_.variable, '.');
}

void ChartView::SetContent(ChartContent content) {
  content_ = std::move(content);
  update();
}

void ChartView::SetStyle(const ChartStyle& style) {
  style_ = style;
  update();
}

FigureLayout ChartView::Laid() const {
  QImage letters(1, 1, QImage::Format_RGB32);
  QPainter painter(&letters);
  painter.setFont(font());
  PainterCanvas canvas(painter);
  const PaperArea paper{0, 0, static_cast<double>(width()), static_cast<double>(height())};
  return LayOut(*content_.figure, paper, canvas, style_);
}

QPointF ChartView::PlaceOf(const PlotPoint& point) const {
  if (!content_.figure) return ToPaper(content_.scale, rect(), point);
  const PaperPoint at = Laid().At(point);
  return {at.x, at.y};
}

PlotPoint ChartView::PointAt(const QPointF& place) const {
  if (!content_.figure) return FromPaper(content_.scale, rect(), place);
  return Laid().From({place.x(), place.y()});
}

ShownPart ChartView::Shown() const {
  if (!content_.figure)
    return {{content_.scale.origin, content_.scale.Xmax}, {0, content_.scale.Ymax}};
  const FigureLayout laid = Laid();
  return {laid.x.ticks.range, laid.y.ticks.range};
}

int ChartView::HiddenBy(const QRect& box) const {
  constexpr int kPointWeighs = 1000;  // times as much as a hundredth of a curve
  constexpr int kRoom = 4;            // of a marker around its middle
  const QRectF around = QRectF(box).adjusted(-kRoom, -kRoom, kRoom, kRoom);
  const std::optional<FigureLayout> laid = content_.figure ? std::optional(Laid()) : std::nullopt;
  const auto place = [&](const PlotPoint& point) {
    if (!laid) return ToPaper(content_.scale, rect(), point);
    const PaperPoint at = laid->At(point);
    return QPointF(at.x, at.y);
  };
  int hidden = 0;
  for (const PlottedExperiment& experiment : content_.experiments)
    for (const auto& [points, weight] :
         {std::pair(&experiment.points, experiment.visible ? kPointWeighs : 0),
          {&experiment.curve, 1}})
      for (const PlotPoint& point : *points)
        if (around.contains(place(point))) hidden += weight;
  return hidden;
}

QRect ChartView::FreestCorner(const QSize& box) const {
  const ShownPart shown = Shown();
  const QPointF origin = PlaceOf({shown.times.from, shown.values.from});
  const int right = width() - box.width() - kAroundBox, top = kAroundBox;
  const int left = std::isfinite(origin.x()) ? static_cast<int>(origin.x()) + kAroundBox : top;
  const int bottom = std::isfinite(origin.y())
                         ? static_cast<int>(origin.y()) - box.height() - kAroundBox
                         : height() - box.height();
  QRect freest;
  int least = std::numeric_limits<int>::max();
  for (const QPoint& at :
       {QPoint(right, top), QPoint(left, top), QPoint(right, bottom), QPoint(left, bottom)}) {
    const int hidden = HiddenBy({at, box});
    if (hidden >= least) continue;
    least = hidden;
    freest = {at, box};
  }
  return freest;
}

bool ChartView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && TellPoint(static_cast<const QHelpEvent&>(*event)))
    return true;
  return QWidget::event(event);
}

bool ChartView::TellPoint(const QHelpEvent& event) const {
  double nearest = kNearPoint;
  std::optional<Told> found;
  const std::optional<FigureLayout> laid = content_.figure ? std::optional(Laid()) : std::nullopt;
  ForEachPoint(content_, [&](Told told) {
    const PaperPoint inFigure = laid ? laid->At(told.point) : PaperPoint{};
    const QPointF at =
        laid ? QPointF(inFigure.x, inFigure.y) : ToPaper(content_.scale, rect(), told.point);
    const double distance = QLineF(at, event.pos()).length();
    if (distance >= nearest) return;
    nearest = distance;
    found = std::move(told);
  });
  if (!found) return false;
  const auto line = [&](const std::string& title, double value) {
    return title + " = " + PlainText(value, content_.separator, kTipDigits);
  };
  const std::string tip = found->name + "\n" + line(found->xTitle, found->point.x) + "\n" +
                          line(found->yTitle, found->point.y);
  QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(QString::fromStdString(tip)));
  return true;
}

void ChartView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintChart(painter, rect(), content_, style_);
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  pressedAt_ = event->position().toPoint();
  if (event->button() == Qt::LeftButton) emit Activated();
  Point(*event);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  Point(*event);
  if (!navigable_ || event->buttons() != Qt::LeftButton) return;
  band_->setGeometry(QRect(pressedAt_, event->position().toPoint()).normalized() & rect());
  band_->show();
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || band_->isHidden()) return;
  band_->hide();
  ChoosePart(band_->geometry());
}

void ChartView::ChoosePart(const QRect& rect) {
  if (rect.width() < kLeastRectangle || rect.height() < kLeastRectangle) return;
  const PlotPoint a = PointAt(rect.bottomLeft()), b = PointAt(rect.topRight());
  if (std::isfinite(a.x + a.y + b.x + b.y)) emit PartChosen({Ordered(a.x, b.x), Ordered(a.y, b.y)});
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit EnlargementAsked();
}

void ChartView::wheelEvent(QWheelEvent* event) {
  if (!navigable_ || event->angleDelta().y() == 0) return event->ignore();
  emit Wheeled(PointAt(event->position()),
               std::pow(kWheelStep, -event->angleDelta().y() / kAnglePerStep));
  event->accept();
}

void ChartView::Point(const QMouseEvent& event) {
  if (event.buttons() == Qt::LeftButton && QRectF(rect()).contains(event.position()))
    emit PointedAt(PointAt(event.position()));
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
  emit MenuRequested(event->globalPos());
}

}  // namespace velmora
