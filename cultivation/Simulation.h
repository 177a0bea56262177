// The simulation of a cultivation with the values as they stand ("Manual").
#pragma once

#include <vector>

#include "cultivation/CultivationConditions.h"
#include "kinetics/ArithmeticFault.h"
#include "kinetics/ModelCurves.h"

namespace velmora {

/// Integrates the experiments at places 1..`experiments` (at most 9) into their curves. A fault
/// ends the simulation of its experiment alone; the faults come back with their places.
std::vector<ArithmeticFault> Manual(const CultivationConditions& conditions, int experiments,
                                    ModelCurves& curves);

}  // namespace velmora
