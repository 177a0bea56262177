#include "app/charts/ChartPainter.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPolygonF>
#include <QVector>
#include <algorithm>
#include <cmath>

#include "app/charts/Markers.h"

namespace velmora {
namespace {

QString Words(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QColor ColourOf(Ink ink) {
  return QColor(ink.red, ink.green, ink.blue);
}

PaperArea AreaOf(const QRectF& rect) {
  return {rect.left(), rect.top(), rect.width(), rect.height()};
}

QPointF PointOf(const PaperPoint& point) {
  return {point.x, point.y};
}

QPolygonF PolygonOf(std::span<const PaperPoint> points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const PaperPoint& point : points) polygon.append(PointOf(point));
  return polygon;
}

QPen PenOf(const Stroke& stroke) {
  return QPen(ColourOf(stroke.ink), stroke.width, PenStyleOf(stroke.kind),
              stroke.kind == LineKind::Solid ? Qt::RoundCap : Qt::FlatCap);
}

QFont Sized(QFont font, double height) {
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(height))));
  return font;
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter) : painter_(painter), font_(painter.font()) {}

void PainterCanvas::OpenPaper(const PaperArea& area) {
  const QRectF paper(area.left, area.top, area.width, area.height);
  painter_.save();
  painter_.setClipRect(paper, Qt::IntersectClip);
  painter_.fillRect(paper, Qt::white);
}

void PainterCanvas::ClosePaper() {
  painter_.restore();
}

void PainterCanvas::SetFontHeight(double height) {
  painter_.setFont(Sized(font_, height));
}

void PainterCanvas::SetTitleFontHeight(double height) {
  QFont font = font_;
  font.setFamilies({QStringLiteral("MS Sans Serif"), font.family()});
  painter_.setFont(Sized(font, height));
}

double PainterCanvas::FontHeight() const {
  return painter_.font().pixelSize();
}

QFontMetricsF PainterCanvas::Metrics() const {
  return QFontMetricsF(painter_.font(), painter_.device());
}

double PainterCanvas::Ascent() const {
  return Metrics().ascent();
}

double PainterCanvas::Descent() const {
  return Metrics().descent();
}

double PainterCanvas::WidthOf(std::string_view text) const {
  return Metrics().horizontalAdvance(Words(text));
}

void PainterCanvas::Write(const PaperPoint& start, std::string_view text) {
  painter_.setPen(Qt::black);
  painter_.drawText(PointOf(start), Words(text));
}

void PainterCanvas::WriteUpwards(const PaperPoint& start, std::string_view text) {
  painter_.save();
  painter_.translate(PointOf(start));
  painter_.rotate(-90);
  Write({}, text);
  painter_.restore();
}

void PainterCanvas::DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) {
  QVector<QLineF> onPaper;
  onPaper.reserve(static_cast<qsizetype>(lines.size()));
  for (const PaperLine& line : lines) onPaper.append(QLineF(PointOf(line.from), PointOf(line.to)));
  painter_.setPen(PenOf(stroke));
  painter_.drawLines(onPaper);
}

void PainterCanvas::DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setBrush(Qt::NoBrush);
  painter_.setPen(PenOf(stroke));
  painter_.drawPolyline(PolygonOf(points));
}

void PainterCanvas::DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) {
  velmora::DrawDots(painter_, PolygonOf(centres), width, ColourOf(ink));
}

void PainterCanvas::DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres,
                                double size, Ink ink, double lineWidth) {
  velmora::DrawMarkers(painter_, marker, PolygonOf(centres), size, ColourOf(ink), lineWidth);
}

void PaintChart(QPainter& painter, const QRectF& paper, const ChartContent& content,
                const ChartStyle& style) {
  painter.save();
  PainterCanvas canvas(painter);
  DrawChart(canvas, AreaOf(paper), content, style);
  painter.restore();
}

QPointF ToPaper(const PlotScale& scale, const QRectF& paper, const PlotPoint& point) {
  return PointOf(ToPaper(scale, AreaOf(paper), point));
}

PlotPoint FromPaper(const PlotScale& scale, const QRectF& paper, const QPointF& position) {
  return FromPaper(scale, AreaOf(paper), PaperPoint{position.x(), position.y()});
}

}  // namespace velmora
