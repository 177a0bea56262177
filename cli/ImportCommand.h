// velmora-cli import
#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Failure.h"

namespace velmora::cli {

struct ImportOptions {
  std::string table;
  std::string output;
  std::vector<std::string> only;  // labels to keep; empty: all
};

/// Makes an experiment file from a spreadsheet's CSV table.
ExitCode Run(const ImportOptions& options, const Console& console);

}  // namespace velmora::cli
