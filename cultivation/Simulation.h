// The simulation of a cultivation with the values as they stand ("Manual"), and curves as text.
#pragma once

#include <string>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "kinetics/ArithmeticFault.h"
#include "kinetics/ModelCurves.h"

namespace velmora {

/// Integrates the experiments at places 1..`experiments` (at most 9) into their curves. A fault
/// ends the curve of its experiment alone; the faults come back with their places.
std::vector<ArithmeticFault> Manual(const CultivationConditions& conditions, int experiments,
                                    ModelCurves& curves);

/// For each place 1..`experiments` (at most 9): "Experimento: " and the place, a header line, one
/// line for each point of the curve with four decimals and the locale's `separator`, an empty line.
/// Lines end in CR LF.
std::string ExportarDados(const ModelCurves& curves, int experiments, char separator);

}  // namespace velmora
