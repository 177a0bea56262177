#include "session/FirstFit.h"

#include <algorithm>
#include <array>
#include <string>

namespace velmora {
namespace {

constexpr std::array kOfEach = {At::Cx0, At::Cs0, At::Cp0, At::T};

void ChooseForFirstFit(CultivationForm& form, std::span<const Experiment> experiments) {
  if (form.method != Method::None) return;
  form.method = Method::LM;
  form.yields = Yields::Global;
  if (form.production == Production::None) form.production = ProposeProduction(experiments);
}

bool HasBounds(const FitRow& row) {
  return !row.lower.text.empty() || !row.upper.text.empty();
}

void ProposeRange(const ProposedRange& range, char separator, ProposedForm& proposed) {
  CultivationForm filled = proposed.form;
  PutInto(filled, range.variable, separator);
  const At at = range.variable.position;
  if (proposed.form.At(at).text.empty()) {
    proposed.form.At(at) = filled.At(at);
    proposed.reasons.emplace_back(at, range.reason);
  }
  const auto row = static_cast<std::size_t>(FittableIndex(at));
  if (!HasBounds(proposed.form.fit[row])) proposed.form.fit[row] = filled.fit[row];
}

/// Whether the user has left a box as it was: empty, or with what it began with.
bool Untouched(const Session& session, const CultivationForm& form, At position, int place) {
  const Entry& entry = form.At(position);
  if (entry.text.empty()) return true;
  if (session.conditions.At(place).saved) return false;
  const auto begun = SuggestedEntries(session.lists.At(place), session.separator);
  return std::find(begun.begin(), begun.end(), std::pair(position, entry)) != begun.end();
}

/// What stands in the boxes of `place` that differ by experiment.
CultivationForm FormFor(const Session& session, CultivationForm form, int place) {
  const ConditionsRecord& record = session.conditions.At(place);
  if (record.saved) {
    const CultivationForm stored = FormOf(record, session.conditions.fitted, session.separator);
    for (const At at : kOfEach) form.At(at) = stored.At(at);
    return form;
  }
  for (const auto& [at, entry] : SuggestedEntries(session.lists.At(place), session.separator))
    form.At(at) = entry;
  // A first sample without cells is no beginning: what the data propose is.
  for (const ProposedValue& value :
       ProposeConditions(session.lists.Experiments(), form.production, form.yields))
    if (value.place == place && value.position == At::Cx0)
      form.At(At::Cx0) = Entry::Of(value.value, session.separator);
  return form;
}

}  // namespace

ProposedForm ProposeForm(const Session& session, CultivationForm form, int place) {
  const std::vector<Experiment>& experiments = session.lists.Experiments();
  ChooseForFirstFit(form, experiments);
  form.modelConfirmed = true;
  ProposedForm proposed{std::move(form), {}};
  const auto values =
      ProposeConditions(experiments, proposed.form.production, proposed.form.yields);
  for (const ProposedValue& value : values) {
    const bool here = value.place == 0 || value.place == place;
    if (!here || !Untouched(session, proposed.form, value.position, place)) continue;
    proposed.form.At(value.position) = Entry::Of(value.value, session.separator);
    proposed.reasons.emplace_back(value.position, value.reason);
  }
  const Model* const model = FindModel(proposed.form.model);
  if (model == nullptr) return proposed;
  for (const ProposedRange& range : ProposeRanges(experiments, *model))
    ProposeRange(range, session.separator, proposed);
  return proposed;
}

ConditionsSaved UseForAll(Session& session, const CultivationForm& form, int place) {
  const CultivationConditions before = session.conditions;
  ConditionsSaved all{};
  const int places = std::min(session.lists.Count(), kMostExperiments);
  for (int each = 1; each <= places; ++each) {
    const CultivationForm own = each == place ? form : FormFor(session, form, each);
    ConditionsSaved saved = SaveConditions(session, own, each);
    if (saved.refusal) {
      session.conditions = before;
      return saved;
    }
    if (each == place) all.shownAlfa = saved.shownAlfa;
    all.change.conditions = true;
  }
  return all;
}

std::pair<int, std::string> OthersWithAnotherModel(const Session& session,
                                                   const CultivationForm& form, int place) {
  std::pair<int, std::string> others{0, ""};
  for (int other = 1; other <= std::min(session.lists.Count(), kMostExperiments); ++other) {
    const ConditionsRecord& record = session.conditions.At(other);
    if (other == place || !record.saved || record.options.model == form.model) continue;
    ++others.first;
    others.second = record.options.model;
  }
  return others;
}

}  // namespace velmora
