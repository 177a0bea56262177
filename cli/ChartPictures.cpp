#include "cli/ChartPictures.h"

#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include "cli/CairoCanvas.h"
#include "cultivation/ReportCharts.h"

namespace velmora::cli {
namespace {

/// The libraries keep what they know of fonts until the program ends, and are asked to give it
/// back, so that a leak of our own is not overlooked among theirs.
void ReleaseFonts() {
  cairo_debug_reset_static_data();
  FcFini();
}

}  // namespace

std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves) {
  const std::vector<LegendRow> legend = LegendRows(lists);
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, true, '.')) {
    CairoCanvas canvas(kReportChartWidth, kReportChartHeight);
    DrawReportChart(canvas, content, legend);
    pictures.push_back({titleId, {canvas.Png(), kReportChartWidth, kReportChartHeight}});
  }
  ReleaseFonts();
  return pictures;
}

}  // namespace velmora::cli
