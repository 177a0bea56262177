// velmora-cli score
#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Failure.h"
#include "cli/Inputs.h"

namespace velmora::cli {

struct ScoreOptions {
  InputOptions inputs;
  std::vector<std::string> set;  // NAME=VALUE, for every experiment
  bool json = false;
};

/// Prints the sum of squared errors at the values in the file, or those set, with the share of each
/// experiment's variables.
ExitCode Run(const ScoreOptions& options, const Console& console);

}  // namespace velmora::cli
