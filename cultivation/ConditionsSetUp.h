// From the form of one experiment to its stored conditions, and back to what the boxes show.
#pragma once

#include <array>
#include <optional>
#include <string>

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
/// parameter unless the method is "Manual", then the values: Cx0, Cs0, T, Yxs and Yps above 0,
/// every box a number. The fitted-parameter table is the one of the whole fit: it is replaced
/// unless the method is "Manual".
Saved SalvarCondCult(const CultivationForm& form, int place, std::int16_t number, char separator,
                     CultivationConditions& conditions);

/// What the box of `position` shows for `value`: plain number text, "0.00##" for positions 8-11,
/// "0.0###" for 12-17.
Entry Shown(At position, double value, char separator);

/// The form that shows a stored record with the fit's table: its boxes, options and fit rows
/// (`MostrarCondCult`). The model is taken from the option text, unconfirmed.
CultivationForm FormOf(const ConditionsRecord& record, const std::vector<FitVariable>& fitted,
                       char separator);

/// What a run is refused for, in order: no experiment, a number of experiments other than that of
/// the conditions saved, experiments saved with different options.
std::optional<Message> RefuseRun(int experiments, const CultivationConditions& conditions);

}  // namespace velmora
