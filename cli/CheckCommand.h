// velmora-cli check
#pragma once

#include <string>

#include "cli/Console.h"
#include "cli/Failure.h"

namespace velmora::cli {

struct CheckOptions {
  std::string file;
};

/// Tells by its second line which of the two files this is, reads it, and prints what it holds.
ExitCode Run(const CheckOptions& options, const Console& console);

}  // namespace velmora::cli
