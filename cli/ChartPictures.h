// The charts of a report, drawn without a display.
#pragma once

#include <vector>

#include "cultivation/Relatorio.h"
#include "data/ExperimentLists.h"
#include "kinetics/ModelCurves.h"

namespace velmora::cli {

/// The charts as PNG pictures, with grid lines and decimal points. Throws `std::runtime_error`
/// where the graphics library cannot draw.
std::vector<ReportPicture> ChartPictures(const ExperimentLists& lists, const ModelCurves& curves);

}  // namespace velmora::cli
