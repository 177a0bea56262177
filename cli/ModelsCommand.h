// velmora-cli models
#pragma once

#include "cli/Console.h"
#include "cli/Failure.h"

namespace velmora::cli {

struct ModelsOptions {};

/// Prints the catalogue: name, parameters and growth rate of each model.
ExitCode Run(const ModelsOptions& options, const Console& console);

}  // namespace velmora::cli
