// The command line as options of one command.
#pragma once

#include <string>
#include <variant>

#include "cli/Commands.h"

namespace velmora::cli {

/// --help or --version: a text to print.
struct HelpOptions {
  std::string text;
};

using Command = std::variant<HelpOptions, ModelsOptions, SimulateOptions, ScoreOptions, FitOptions,
                             CompareOptions, ChartOptions, ExportOptions, CheckOptions,
                             ImportOptions, ConditionsOptions, BatchOptions>;

struct Arguments {
  GeneralOptions general;
  std::vector<std::string> inputs;  // the files that the command reads
  Command command;
};

/// Thrown where the command line is wrong.
struct UsageError {
  GeneralOptions general;  // as far as they could be told
  std::string line;
};

/// Throws a `UsageError`.
Arguments ParseArguments(int argc, const char* const* argv);

}  // namespace velmora::cli
