// velmora-cli fit
#pragma once

#include <array>
#include <optional>
#include <string>

#include "cli/Console.h"
#include "cli/Failure.h"
#include "cli/Inputs.h"
#include "estimation/EstimationSettings.h"

namespace velmora::cli {

/// The options that state the seven settings.
struct SettingOption {
  const char* option;
  std::optional<double> TypedSettings::*typed;
  const char* help;
};
inline constexpr std::array<SettingOption, 7> kSettingOptions = {
    {{"--npop", &TypedSettings::NPOP, "population size, at least 10 (default 100)"},
     {"--iter", &TypedSettings::ITER, "most generations, at least 200 (default 200)"},
     {"--pcros", &TypedSettings::PCROS, "crossover probability, 0.5 to 0.9 (default 0.8)"},
     {"--fact", &TypedSettings::FACT, "weight of the difference term, 0.5 to 0.9 (default 0.8)"},
     {"--fact1", &TypedSettings::FACT1, "weight of the second term, 0 to 0.01 (default 0.01)"},
     {"--eps", &TypedSettings::EPS, "accuracy of convergence, 1e-7 to 1e-4 (default 1e-5)"},
     {"--iu", &TypedSettings::IU, "seed of the random numbers, 1000 to 9999 (default 5471)"}}};

struct FitOptions {
  InputOptions inputs;
  std::array<std::optional<std::string>, kSettingOptions.size()> settings;  // as typed
  bool progress = false;
  bool json = false;
  std::optional<std::string> report;  // the file to write the report to
};

/// Checks settings, files and fit set-up, searches, and prints the results with their deviations.
/// Ctrl-C ends the search at its next generation; the results are printed all the same.
ExitCode Run(const FitOptions& options, const Console& console);

}  // namespace velmora::cli
