// The charts of a report, as Qt draws them.
#pragma once

#include <vector>

#include "data/ExperimentLists.h"
#include "kinetics/ModelCurves.h"
#include "report/Relatorio.h"

namespace velmora {

/// The charts as PNG pictures.
std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator);

}  // namespace velmora
