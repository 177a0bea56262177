// The charts of a report.
#pragma once

#include <string>
#include <vector>

#include "charts/ChartCanvas.h"
#include "charts/ChartContent.h"
#include "report/Relatorio.h"

namespace velmora {

/// The size of a chart's picture, in pixels: some 240 an inch on a page's width, three pictures on
/// a page.
inline constexpr int kReportChartWidth = 1500;
inline constexpr int kReportChartHeight = 700;

struct ReportChart {
  TextId titleId{};  // of its name
  ChartContent content;
};

/// The plots of Cx, Cs and Cp with their curves, as figures for publication. A plot that has
/// nothing to show is left out.
std::vector<ReportChart> ReportCharts(const ExperimentLists& lists, const ModelCurves& curves,
                                      bool gridLines, char separator);

/// Draws the chart on a canvas of the size above.
void DrawReportChart(ChartCanvas& canvas, const ChartContent& content);
/// The same as an enhanced metafile.
std::string ReportDrawing(const ChartContent& content);

/// The charts as PNG pictures and as drawings, drawn without a display, with grid lines and decimal
/// points. Throws `std::runtime_error` where the graphics library cannot draw.
std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves);

}  // namespace velmora
