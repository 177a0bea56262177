#include "cli/ChartPictures.h"

#include "cli/CairoCanvas.h"
#include "cultivation/ReportCharts.h"

namespace velmora::cli {

std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves) {
  const std::vector<LegendRow> legend = LegendRows(lists);
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, true, '.')) {
    CairoCanvas canvas(kReportChartWidth, kReportChartHeight);
    DrawReportChart(canvas, content, legend);
    pictures.push_back({titleId, {canvas.Png(), kReportChartWidth, kReportChartHeight}});
  }
  return pictures;
}

}  // namespace velmora::cli
