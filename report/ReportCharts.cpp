#include "report/ReportCharts.h"

#include "charts/CairoCanvas.h"
#include "charts/ChartDrawing.h"
#include "charts/EmfCanvas.h"
#include "charts/PublishedChart.h"

namespace velmora {
namespace {

// Pixels.
constexpr double kUnit = 2;
constexpr double kFontHeight = 15;  // units
constexpr double kDpi = 240;

struct Plot {
  PlotVariable variable;
  TextId titleId;
};
constexpr Plot kPlots[] = {{PlotVariable::Cx, TextId::CxVersusTime},
                           {PlotVariable::Cs, TextId::CsVersusTime},
                           {PlotVariable::Cp, TextId::CpVersusTime}};

}  // namespace

std::vector<ReportChart> ReportCharts(const ExperimentLists& lists, const ModelCurves& curves,
                                      bool gridLines, char separator) {
  FigureView view;
  view.separator = separator;
  std::vector<ReportChart> charts;
  for (const auto& [variable, titleId] : kPlots) {
    ChartContent content = ContentOf(variable, lists, &curves, gridLines, separator);
    content.figure = CourseFigure(content, view);
    if (CanBeSized(content)) charts.push_back({titleId, std::move(content)});
  }
  return charts;
}

void DrawReportChart(ChartCanvas& canvas, const ChartContent& content) {
  DrawChart(canvas, {0, 0, kReportChartWidth, kReportChartHeight}, content,
            {PointStyle::Markers, kUnit, kFontHeight});
}

std::string ReportDrawing(const ChartContent& content) {
  EmfCanvas canvas(kReportChartWidth, kReportChartHeight, kDpi);
  DrawReportChart(canvas, content);
  return canvas.Metafile();
}

std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves) {
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, true, '.')) {
    CairoCanvas canvas(kReportChartWidth, kReportChartHeight, PictureFormat::Png, kDpi);
    DrawReportChart(canvas, content);
    pictures.push_back(
        {titleId, {canvas.Bytes(), kReportChartWidth, kReportChartHeight, ReportDrawing(content)}});
  }
  return pictures;
}

}  // namespace velmora
