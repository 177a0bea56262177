// From the form of one experiment to its stored conditions.
#pragma once

#include <cstdint>
#include <optional>

#include "cultivation/CultivationConditions.h"
#include "cultivation/CultivationForm.h"

namespace velmora {

/// What saving came to: the refusal, with nothing stored; or what to show in the box of alpha,
/// where the yields or the production decide it.
struct Saved {
  std::optional<Refusal> refusal;
  std::optional<Entry> shownAlfa;
};

/// Checks the form and stores the conditions of the experiment at `place` (0: none is selected,
/// which is refused; above 9: std::out_of_range) with number `number`. The checks, in order: a
/// selected experiment, the ticked fit rows, method, production, confirmed model, a fitted
/// parameter unless the method is "Manual", yields, then the values: Cx0, Cs0, T, Yxs and Yps above
/// 0, every box a number. The fitted-parameter table is the one of the whole fit: it is replaced
/// unless the method is "Manual".
Saved SalvarCondCult(const CultivationForm& form, int place, std::int16_t number, char separator,
                     CultivationConditions& conditions);

}  // namespace velmora
