#include "report/ReportCharts.h"

#include <algorithm>
#include <string>

#include "charts/CairoCanvas.h"
#include "charts/ChartDrawing.h"
#include "charts/MarkerFigures.h"

namespace velmora {
namespace {

// Pixels.
constexpr double kUnit = 2;
constexpr double kFontHeight = 15;  // units
constexpr double kLegendHeight = 60;
constexpr double kLegendFontHeight = 26;
constexpr double kMarkerWidth = 20;
constexpr double kToWord = 10;  // from a marker to its words
constexpr double kToNext = 34;  // from those to the next marker

struct Plot {
  PlotVariable variable;
  TextId titleId;
};
constexpr Plot kPlots[] = {{PlotVariable::Cx, TextId::CxVersusTime},
                           {PlotVariable::Cs, TextId::CsVersusTime},
                           {PlotVariable::Cp, TextId::CpVersusTime}};

/// "Exp." is short for the word in both languages.
std::string WordsOf(const LegendRow& row) {
  return "Exp. " + std::to_string(row.number);
}

/// A marker in its colour and the experiment's number, side by side in the middle of the strip.
void DrawLegend(ChartCanvas& canvas, const PaperArea& strip, const std::vector<LegendRow>& rows) {
  canvas.OpenPaper(strip);
  canvas.SetFontHeight(kLegendFontHeight);
  const auto widthOf = [&](const LegendRow& row) {
    return kMarkerWidth + kToWord + canvas.WidthOf(WordsOf(row));
  };
  double whole = -kToNext;
  for (const LegendRow& row : rows) whole += widthOf(row) + kToNext;
  const double baseLine = strip.Centre().y + (canvas.Ascent() - canvas.Descent()) / 2;
  double x = strip.Centre().x - whole / 2;
  for (const LegendRow& row : rows) {
    const PaperPoint marker[] = {{x + kMarkerWidth / 2, strip.Centre().y}};
    canvas.DrawMarkers(row.marker, marker, kMarkerWidth, InkOf(row.colour), kUnit);
    canvas.Write({x + kMarkerWidth + kToWord, baseLine}, WordsOf(row));
    x += widthOf(row) + kToNext;
  }
  canvas.ClosePaper();
}

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
  DrawLegend(canvas, {0, height, kReportChartWidth, kLegendHeight}, legend);
}

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

}  // namespace velmora
