// The computed curves as tab-separated text for a spreadsheet.
#pragma once

#include <string>

#include "kinetics/ModelCurves.h"

namespace velmora {

/// For each place 1..`experiments` (at most 9): "Experimento: " and the place, a header line, one
/// line for each of the 100 points with four decimals and the locale's `separator`, an empty line.
/// Lines end in CR LF.
std::string ExportarDados(const ModelCurves& curves, int experiments, char separator);

}  // namespace velmora
