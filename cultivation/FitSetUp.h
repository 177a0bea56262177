// The choice of fitted parameters and bounds, checked.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "cultivation/CultivationForm.h"
#include "data/Experiment.h"
#include "estimation/FitProblem.h"

namespace velmora {

/// The fitted-parameter table of the form's ticked rows, in table order; shows no message. A text
/// that is no number counts as 0.
std::vector<FittedParameter> VarAjustadas(const CultivationForm& form, char separator);

/// The table with the values of a conditions row as the fourth values: where a stored fit starts.
std::vector<FittedParameter> WithValuesOf(const ConditionsRow& row,
                                          std::vector<FittedParameter> table);

/// The refusal of the first row whose value or bound is 0 (a bound of 0 is refused also below), or
/// whose value lies outside its bounds.
std::optional<Refusal> RefuseFitRows(std::span<const FittedParameter> table);

/// The fitted parameters of a usable choice, in table order, or the refusal. There must be at least
/// one.
struct CheckedFit {
  std::vector<FitVariable> variables;
  std::optional<Refusal> refusal;
};
CheckedFit ChecarVarAjustadas(std::span<const FittedParameter> table);

/// The search's variables from the fitted-parameter table.
std::vector<FitVariable> VariablesOf(std::span<const FittedParameter> table);

/// The problem of fitting `conditions` to `experiments`, which must be as many as the conditions
/// saved, at most 9.
FitProblem ProblemOf(const std::vector<Experiment>& experiments,
                     const CultivationConditions& conditions);

}  // namespace velmora
