// The charts of a report.
#pragma once

#include <vector>

#include "app/Session.h"
#include "cultivation/Relatorio.h"

namespace velmora {

/// The plots of Cx, Cs and Cp with their curves, a legend below each, as PNG pictures.
std::vector<ReportPicture> ReportPictures(const Session& session);

}  // namespace velmora
