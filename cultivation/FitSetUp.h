// The choice of fitted parameters and bounds, checked.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "cultivation/CultivationForm.h"
#include "data/Experiment.h"
#include "estimation/EstimationSettings.h"
#include "estimation/SearchResult.h"

namespace velmora {

/// The fitted-parameter table of the form's ticked rows, in table order; shows no message. A box
/// that holds no number counts as 0, one whose number no double holds as infinite.
std::vector<FitVariable> VarAjustadas(const CultivationForm& form, char separator);

/// The table with the values of a conditions row as start values: where a stored fit starts.
std::vector<FitVariable> StartingFrom(const ConditionsRow& row, std::vector<FitVariable> table);

/// The positions of the fitted parameters.
std::vector<At> PositionsOf(std::span<const FitVariable> table);

/// The refusal of the first row whose value or bound no double holds or is 0 (a bound of 0 is
/// refused also below), or whose value lies outside its bounds.
std::optional<Refusal> RefuseFitRows(std::span<const FitVariable> table);

/// The refusal of a choice that cannot be fitted: `RefuseFitRows`, and no parameter at all.
std::optional<Refusal> ChecarVarAjustadas(std::span<const FitVariable> table);

/// What the user is told where settings, or the bounds of a search, do not pass, and where the
/// deviations cannot be computed.
Message SettingsRefusal();
Message BoundsRefusal();
Message InversionMessage();

/// The problem of fitting `conditions` to `experiments`, which must be as many as the conditions
/// saved, at most 9.
FitProblem ProblemOf(const std::vector<Experiment>& experiments,
                     const CultivationConditions& conditions);

/// Minimises the problem's score by the method, ED or LM. Of the settings LM takes the seed alone.
/// The result does not depend on the number of threads. Throws std::bad_alloc where no memory holds
/// the population.
SearchResult SearchBy(Method method, const FitProblem& problem, const EstimationSettings& settings,
                      SearchObserver& observer, unsigned threads = 1);

}  // namespace velmora
