// Numbers and values as options give them: 0.8, Ks=11.4, 2:Cx0=0.05, MiMax=0.2:0.05:1.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Console.h"
#include "estimation/FitProblem.h"
#include "kinetics/KineticParameters.h"

namespace velmora::cli {

/// NAME=VALUE, or PLACE:NAME=VALUE.
struct Assignment {
  std::string name;
  At position = At::muMax;
  double value = 0;
  int place = 0;  // 0: every experiment
};

/// The ten names that may be fitted, joined by blanks; and all that --set of `conditions` takes.
std::string FittableNames();
std::string ConditionNames();

/// All throw a `Failure` (Usage) that names the option and the text.
double NumberOf(std::string_view option, std::string_view text, const Wording& say);
/// --set with one of the ten fittable names.
Assignment FittableAssignment(const std::string& text, const Wording& say);
/// --set with any name of a conditions value, for places 0..`experiments`; not negative.
Assignment ConditionAssignment(const std::string& text, int experiments, const Wording& say);
/// Each --fit NAME=START:LOWER:UPPER; nothing negative, no name twice.
std::vector<FitVariable> FittedRanges(const std::vector<std::string>& texts, const Wording& say);
/// No value that is set may be fitted too.
void RequireNotFitted(const std::vector<Assignment>& values, const std::vector<FitVariable>& fitted,
                      const Wording& say);

}  // namespace velmora::cli
