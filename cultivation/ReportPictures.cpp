#include "cultivation/ReportPictures.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include "charts/ChartPainter.h"
#include "charts/LegendView.h"
#include "charts/Markers.h"

namespace velmora {
namespace {

// Pixels; fine enough for a page's width on paper.
constexpr QSize kSize(1500, 1000);
constexpr double kUnit = 2;
constexpr int kLegendHeight = 60;
constexpr int kLegendStep = 130;
constexpr int kLegendIndent = 220;
constexpr double kMarkerWidth = 22;

/// A marker in its colour and the number, for each visible experiment in a row.
void PaintLegend(QPainter& painter, const QRectF& strip, const std::vector<LegendRow>& rows) {
  QFont font = painter.font();
  font.setPixelSize(28);
  painter.setFont(font);
  double x = strip.left() + kLegendIndent;
  for (const LegendRow& row : rows) {
    if (x + kLegendStep > strip.right()) return;
    DrawMarker(painter, row.marker, QPointF(x, strip.center().y()), kMarkerWidth,
               ColourOf(row.colour), kUnit);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(x + kMarkerWidth, strip.top(), kLegendStep, strip.height()),
                     Qt::AlignVCenter | Qt::AlignLeft, QString::number(row.number));
    x += kLegendStep;
  }
}

ReportPicture PictureOf(PlotVariable variable, const Session& session) {
  QImage image(kSize, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const ChartContent content =
      ContentOf(variable, session.lists, session.curvesPresent ? &session.curves : nullptr,
                session.gridLines, session.separator);
  ChartStyle style;
  style.points = PointStyle::Markers;
  style.unit = kUnit;
  PaintChart(painter, QRectF(0, 0, kSize.width(), kSize.height() - kLegendHeight), content, style);
  PaintLegend(painter, QRectF(0, kSize.height() - kLegendHeight, kSize.width(), kLegendHeight),
              LegendRows(session.lists));
  painter.end();
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return {png.toStdString(), kSize.width(), kSize.height()};
}

}  // namespace

std::vector<ReportPicture> ReportPictures(const Session& session) {
  std::vector<ReportPicture> pictures;
  for (const PlotVariable variable : {PlotVariable::Cx, PlotVariable::Cs, PlotVariable::Cp})
    pictures.push_back(PictureOf(variable, session));
  return pictures;
}

}  // namespace velmora
