#include "cultivation/ReportPictures.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>

#include "charts/ChartPainter.h"
#include "charts/Markers.h"

namespace velmora {
namespace {

// Pixels: some 240 an inch on a page's width, three pictures on a page.
constexpr QSize kSize(1500, 700);
constexpr double kUnit = 2;
constexpr double kFontHeight = 15;  // units
constexpr int kLegendHeight = 60;
constexpr double kLegendFontHeight = 26;
constexpr double kMarkerWidth = 20;
constexpr double kToWord = 10;  // from a marker to its words
constexpr double kToNext = 34;  // from those to the next marker

struct Plot {
  PlotVariable variable;
  int titleId;
};
constexpr Plot kPlots[] = {
    {PlotVariable::Cx, 130}, {PlotVariable::Cs, 126}, {PlotVariable::Cp, 125}};

/// "Exp." is short for the word in both languages.
QString WordsOf(const LegendRow& row) {
  return QStringLiteral("Exp. %1").arg(row.number);
}

/// A marker in its colour and the experiment's number, side by side in the middle of the strip.
void PaintLegend(QPainter& painter, const QRectF& strip, const std::vector<LegendRow>& rows) {
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(kLegendFontHeight));
  painter.setFont(font);
  const QFontMetricsF metrics(font, painter.device());
  const auto widthOf = [&](const LegendRow& row) {
    return kMarkerWidth + kToWord + metrics.horizontalAdvance(WordsOf(row));
  };
  double whole = -kToNext;
  for (const LegendRow& row : rows) whole += widthOf(row) + kToNext;
  double x = strip.center().x() - whole / 2;
  for (const LegendRow& row : rows) {
    DrawMarker(painter, row.marker, QPointF(x + kMarkerWidth / 2, strip.center().y()), kMarkerWidth,
               ColourOf(row.colour), kUnit);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(x + kMarkerWidth + kToWord, strip.top(), strip.width(), strip.height()),
                     Qt::AlignVCenter | Qt::AlignLeft, WordsOf(row));
    x += widthOf(row) + kToNext;
  }
}

/// The paper of the chart in a picture whose upper `height` pixels it fills but for the room above
/// the axis, which the plot's title takes elsewhere: here that stands outside.
QRectF PaperIn(double height, const PlotScale& scale) {
  double hidden = 0;
  if (scale.Ymax > 0) {
    const double above = ToPaper(scale, QRectF(0, 0, 1, 1), {scale.origin, scale.Ymax}).y();
    hidden = std::max(0.0, (above * height - kUnit * kFontHeight) / (1 - above));
  }
  return {0, -hidden, static_cast<double>(kSize.width()), height + hidden};
}

}  // namespace

QByteArray ChartPng(const ChartContent& content, const std::vector<LegendRow>& legend) {
  QImage image(kSize, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const double height = kSize.height() - kLegendHeight;
  PaintChart(painter, PaperIn(height, content.scale), content,
             {PointStyle::Markers, kUnit, kFontHeight});
  PaintLegend(painter, QRectF(0, height, kSize.width(), kLegendHeight), legend);
  painter.end();
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return png;
}

std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator) {
  const std::vector<LegendRow> legend = LegendRows(lists);
  std::vector<ReportPicture> pictures;
  for (const auto& [variable, titleId] : kPlots) {
    const ChartContent content = ContentOf(variable, lists, &curves, gridLines, separator);
    if (!CanBeSized(content)) continue;
    pictures.push_back(
        {titleId, {ChartPng(content, legend).toStdString(), kSize.width(), kSize.height()}});
  }
  return pictures;
}

}  // namespace velmora
