// The warning about measured variables that have no positive value.
#pragma once

#include "cli/Console.h"
#include "data/ExperimentLists.h"

namespace velmora::cli {

/// Says once for each such variable that its data could not be normalised, and where it is.
void WarnOfUnscaled(const ExperimentLists& lists, const Console& console);

}  // namespace velmora::cli
