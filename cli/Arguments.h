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
                             ImportOptions, ConditionsOptions>;

struct Arguments {
  Language language = Language::English;
  Command command;
};

/// Throws a `Failure` (Usage) with the parser's own English line where the command line is wrong.
Arguments ParseArguments(int argc, const char* const* argv);

}  // namespace velmora::cli
