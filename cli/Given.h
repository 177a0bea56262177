// Models by name, and what the command line states in place of the conditions' own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Assignments.h"
#include "cultivation/CultivationConditions.h"
#include "kinetics/Modelos.h"

namespace velmora::cli {

/// The model with this name; throws a `Failure` (Usage) where there is none.
const Model& ModelNamed(const std::string& name, const Wording& say);

/// The names of the fittable parameters that the model uses, joined by ", ".
std::string ParameterNames(const Model& model);

/// Throws a `Failure` (Refused) where the model does not use the fittable parameter at `position`.
void RequireUse(const Model& model, At position, const Wording& say);

/// What --model, --set and --fit state.
struct Given {
  const Model* model = nullptr;  // where it names one
  std::vector<Assignment> values;
  std::vector<FitVariable> fitted;

  std::vector<At> Positions() const;
};

Given GivenBy(const std::optional<std::string>& model, const std::vector<std::string>& set,
              const std::vector<std::string>& fit, const Wording& say);

/// A value that the conditions keep under the model that is given, in another unit than before.
struct UnitChange {
  std::string_view name;
  std::string_view before;
  std::string_view model;
  std::string_view now;
};

/// Those of the first conditions' own model.
std::vector<UnitChange> UnitChanges(const CultivationConditions& conditions, const Given& given);

/// Puts the model, the values and the fitted parameters into all conditions. Throws a `Failure`
/// (Refused) for a parameter that the model does not use, and for one that it needs and that has no
/// value: what a row holds where its own model uses nothing is none. Where the command `fits`, a
/// value that is fitted is refused too (Usage).
void PutInto(CultivationConditions& conditions, const Given& given, bool fits, const Wording& say);

}  // namespace velmora::cli
