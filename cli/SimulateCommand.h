// velmora-cli simulate, velmora-cli export
#pragma once

#include "cli/Console.h"
#include "cli/Failure.h"
#include "cli/Inputs.h"

namespace velmora::cli {

struct SimulateOptions {
  InputOptions inputs;
  bool json = false;
};

/// Integrates every experiment and prints its 100 model points. An experiment that meets an
/// arithmetic fault is reported and left out.
ExitCode Run(const SimulateOptions& options, const Console& console);

struct ExportOptions {
  InputOptions inputs;
};

/// Prints the computed curves as tab-separated text; nothing where an experiment meets a fault.
ExitCode Run(const ExportOptions& options, const Console& console);

}  // namespace velmora::cli
