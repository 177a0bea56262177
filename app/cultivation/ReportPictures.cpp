#include "app/cultivation/ReportPictures.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>

#include "app/charts/ChartPainter.h"
#include "report/ReportCharts.h"

namespace velmora {
namespace {

std::string PngOf(const ChartContent& content, const std::vector<LegendRow>& legend) {
  QImage image(kReportChartWidth, kReportChartHeight, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  PainterCanvas canvas(painter);
  DrawReportChart(canvas, content, legend);
  painter.end();
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return png.toStdString();
}

}  // namespace

std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator) {
  const std::vector<LegendRow> legend = LegendRows(lists);
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, gridLines, separator))
    pictures.push_back({titleId, {PngOf(content, legend), kReportChartWidth, kReportChartHeight}});
  return pictures;
}

}  // namespace velmora
