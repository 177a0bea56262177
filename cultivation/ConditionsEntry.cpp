#include "cultivation/ConditionsEntry.h"

#include <algorithm>

#include "cultivation/ConditionsSetUp.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

int PlacesOf(const std::vector<Experiment>& experiments) {
  return std::min(static_cast<int>(experiments.size()), kMostExperiments);
}

/// The place of a saved record with this number that no experiment has taken; `place` itself first.
int RecordFor(std::int16_t number, int place, const CultivationConditions& conditions,
              const std::array<bool, kMostExperiments + 1>& taken) {
  const auto serves = [&](int candidate) {
    const ConditionsRecord& record = conditions.At(candidate);
    return !taken[static_cast<std::size_t>(candidate)] && record.saved && record.number == number;
  };
  if (serves(place)) return place;
  for (int candidate = 1; candidate <= kMostExperiments; ++candidate)
    if (serves(candidate)) return candidate;
  return 0;
}

}  // namespace

std::vector<std::pair<At, Entry>> SuggestedEntries(const Experiment& experiment, char separator) {
  std::vector<std::pair<At, Entry>> entries;
  const auto suggest = [&](At position, double value) {
    entries.emplace_back(position, Entry::Of(value, separator));
  };
  if (experiment.Points() > 0) {
    suggest(At::Cx0, experiment.Cx.front());
    suggest(At::Cs0, experiment.Cs.front());
    suggest(At::Cp0, experiment.Cp.front());
  }
  suggest(At::T, experiment.finalTime);
  return entries;
}

bool SameEntries(const CultivationForm& left, const CultivationForm& right) {
  return left.boxes == right.boxes && left.method == right.method &&
         left.production == right.production && left.yields == right.yields &&
         left.dataSet == right.dataSet && left.model == right.model && left.fit == right.fit;
}

bool RunPassesOver(const CultivationForm& form, int place, char separator,
                   const CultivationConditions& conditions) {
  const ConditionsRecord& stored = conditions.At(place);
  CultivationConditions asShown = conditions;
  if (SalvarCondCult(form, place, stored.number, separator, asShown).refusal) return true;
  ConditionsRecord& shown = asShown.At(place);
  // A file may hold a rounded quotient of the yields.
  if (form.yields == Yields::Global) shown.row[At::alpha] = stored.row[At::alpha];
  const bool searches = form.method != Method::Manual;
  for (std::size_t row = 0; searches && row < kFittable.size(); ++row)
    if (form.fit[row].ticked)
      shown.row[kFittable[row].position] = stored.row[kFittable[row].position];
  return shown.row != stored.row || shown.options.production != stored.options.production;
}

bool AlignConditions(const std::vector<Experiment>& experiments,
                     CultivationConditions& conditions) {
  CultivationConditions aligned;
  aligned.fitted = conditions.fitted;
  std::array<bool, kMostExperiments + 1> taken{};
  for (int place = 1; place <= PlacesOf(experiments); ++place) {
    const std::int16_t number = experiments[static_cast<std::size_t>(place) - 1].number;
    const int source = RecordFor(number, place, conditions, taken);
    if (source == 0) continue;
    aligned.At(place) = conditions.At(source);
    taken[static_cast<std::size_t>(source)] = true;
  }
  if (aligned == conditions) return false;
  conditions = aligned;
  return true;
}

}  // namespace velmora
