#include "report/ReportCharts.h"

#include <algorithm>
#include <string>

#include "charts/CairoCanvas.h"
#include "charts/ChartDrawing.h"
#include "charts/LegendStrip.h"

namespace velmora {
namespace {

// Pixels.
constexpr double kUnit = 2;
constexpr double kFontHeight = 15;  // units
constexpr double kLegendHeight = 60;

struct Plot {
  PlotVariable variable;
  TextId titleId;
};
constexpr Plot kPlots[] = {{PlotVariable::Cx, TextId::CxVersusTime},
                           {PlotVariable::Cs, TextId::CsVersusTime},
                           {PlotVariable::Cp, TextId::CpVersusTime}};

/// The paper of a chart that fills `height` pixels but for the room above the axis, which a plot's
/// title takes elsewhere: in a report that stands outside the picture.
PaperArea PaperIn(double height, const PlotScale& scale) {
  double hidden = 0;
  if (scale.Ymax > 0) {
    const double above = ToPaper(scale, {0, 0, 1, 1}, {scale.origin, scale.Ymax}).y;
    hidden = std::max(0.0, (above * height - kUnit * kFontHeight) / (1 - above));
  }
  return {0, -hidden, kReportChartWidth, height + hidden};
}

}  // namespace

std::vector<ReportChart> ReportCharts(const ExperimentLists& lists, const ModelCurves& curves,
                                      bool gridLines, char separator) {
  std::vector<ReportChart> charts;
  for (const auto& [variable, titleId] : kPlots) {
    ChartContent content = ContentOf(variable, lists, &curves, gridLines, separator);
    if (CanBeSized(content)) charts.push_back({titleId, std::move(content)});
  }
  return charts;
}

void DrawReportChart(ChartCanvas& canvas, const ChartContent& content,
                     const std::vector<LegendRow>& legend) {
  const double height = kReportChartHeight - kLegendHeight;
  DrawChart(canvas, PaperIn(height, content.scale), content,
            {PointStyle::Markers, kUnit, kFontHeight});
  DrawLegendStrip(canvas, {0, height, kReportChartWidth, kLegendHeight}, legend, kUnit);
}

std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves) {
  const std::vector<LegendRow> legend = LegendRows(lists);
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, true, '.')) {
    CairoCanvas canvas(kReportChartWidth, kReportChartHeight);
    DrawReportChart(canvas, content, legend);
    pictures.push_back({titleId, {canvas.Bytes(), kReportChartWidth, kReportChartHeight}});
  }
  return pictures;
}

}  // namespace velmora
