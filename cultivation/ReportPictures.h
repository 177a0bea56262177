// The charts of a report.
#pragma once

#include <QByteArray>
#include <vector>

#include "charts/ChartContent.h"
#include "charts/LegendView.h"
#include "cultivation/Relatorio.h"

namespace velmora {

/// The chart with its markers and, below it, one row of a legend as a PNG picture.
QByteArray ChartPng(const ChartContent& content, const std::vector<LegendRow>& legend);

/// The plots of Cx, Cs and Cp with their curves. A plot that has nothing to show is left out.
std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator);

}  // namespace velmora
