// What spares the user entries: proposals from the data, and one form for all experiments.
#pragma once

#include <utility>
#include <vector>

#include "inference/Proposal.h"
#include "session/Operations.h"
#include "session/Session.h"

namespace velmora {

/// A form with what the data propose in its empty boxes.
struct ProposedForm {
  CultivationForm form;
  std::vector<std::pair<At, Reason>> reasons;  // of each box that was filled
};

/// Fills the empty boxes, and those that show what they began with, of the form of the experiment
/// at `place`, which must be one; a fit row without bounds is ticked with proposed ones. Where no
/// method is chosen, the choices become those of a first fit: Levenberg-Marquardt, production with
/// growth where product is measured, global yields. The model is the chosen one.
ProposedForm ProposeForm(const Session& session, CultivationForm form, int place);

/// Stores the form of the experiment at `place` for every experiment, the others each with the
/// initial values and final time that are stored of it, or else those that its data propose. After
/// a refusal nothing has changed.
ConditionsSaved UseForAll(Session& session, const CultivationForm& form, int place);

/// How many other experiments are stored with another model than the form of `place` has, and the
/// name of such a model.
std::pair<int, std::string> OthersWithAnotherModel(const Session& session,
                                                   const CultivationForm& form, int place);

}  // namespace velmora
