// What the boxes of an experiment start from, and what tells that they were changed.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "cultivation/CultivationForm.h"
#include "data/Experiment.h"

namespace velmora {

/// The boxes that an experiment without saved conditions begins with: the concentrations of its
/// first measured point, and its final time.
std::vector<std::pair<At, Entry>> SuggestedEntries(const Experiment& experiment, char separator);

/// Whether two forms state the same. Whether the model is confirmed does not count.
bool SameEntries(const CultivationForm& left, const CultivationForm& right);

/// Whether a run would pass over entries of `form`, the form of the saved experiment at `place`. It
/// takes the method from the form, and a search the ticked parameters with their start values and
/// bounds; all else that it uses it takes from `conditions`.
bool RunPassesOver(const CultivationForm& form, int place, char separator,
                   const CultivationConditions& conditions);

/// Brings the records to the places of their experiments' numbers, after experiments were inserted
/// or deleted; the records of experiments that are no more are dropped. Whether anything changed.
bool AlignConditions(const std::vector<Experiment>& experiments, CultivationConditions& conditions);

}  // namespace velmora
