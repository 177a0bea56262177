// velmora-cli conditions
#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Failure.h"

namespace velmora::cli {

struct ConditionsOptions {
  std::string experiments;
  std::string model;
  std::string product;           // PAC, PPAC or PNAC
  std::string yields;            // global or stoichiometric
  std::string method = "ED";     // ED or Manual
  std::vector<std::string> set;  // NAME=VALUE or PLACE:NAME=VALUE
  std::vector<std::string> fit;  // NAME=START:LOWER:UPPER
  std::string output;
};

/// Makes a conditions file for the experiments of a file, by the rules of the cultivation window.
ExitCode Run(const ConditionsOptions& options, const Console& console);

}  // namespace velmora::cli
