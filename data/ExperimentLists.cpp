#include "data/ExperimentLists.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <string>
#include <utility>

namespace velmora {
namespace {

constexpr std::size_t kUsualExperiments = 9;

std::ptrdiff_t IndexOf(int place) {
  return place - 1;
}

}  // namespace

const Experiment& ExperimentLists::At(int place) const {
  return experiments_.at(static_cast<std::size_t>(IndexOf(place)));
}

const DisplayEntry& ExperimentLists::Display(int place) const {
  return displays_.at(static_cast<std::size_t>(IndexOf(place)));
}

DisplayEntry& ExperimentLists::Display(int place) {
  return displays_.at(static_cast<std::size_t>(IndexOf(place)));
}

int ExperimentLists::PlaceOf(std::int16_t number) const {
  const auto at = std::find_if(experiments_.begin(), experiments_.end(),
                               [number](const Experiment& e) { return e.number == number; });
  return at == experiments_.end() ? 0 : static_cast<int>(at - experiments_.begin()) + 1;
}

bool ExperimentLists::Append(Experiment experiment, DisplayEntry display) {
  if (Count() >= kMostPlaces) return false;
  // The room for both is made first, so that neither list can grow without the other.
  if (experiments_.size() == experiments_.capacity())
    experiments_.reserve(2 * experiments_.size() + kUsualExperiments);
  displays_.push_back(std::move(display));
  experiments_.push_back(std::move(experiment));
  return true;
}

void ExperimentLists::Replace(int place, Experiment experiment, DisplayEntry display) {
  assert(place >= 1 && place <= Count());
  experiments_[static_cast<std::size_t>(IndexOf(place))] = std::move(experiment);
  displays_[static_cast<std::size_t>(IndexOf(place))] = std::move(display);
}

std::optional<Message> ExperimentLists::Delete(int place) {
  if (place < 1 || place > Count())
    return Message{{TextId::CannotBeDeleted}, TextId::DeleteExperiment, Icon::Information};
  experiments_.erase(experiments_.begin() + IndexOf(place));
  displays_.erase(displays_.begin() + IndexOf(place));
  return std::nullopt;
}

void ExperimentLists::Clear() {
  experiments_.clear();
  displays_.clear();
}

SaveQuestions AskBeforeSaving(const ExperimentLists& lists, const Experiment& experiment) {
  SaveQuestions questions{std::nullopt,
                          std::nullopt,
                          {{TextId::ConfirmData, " ", std::to_string(experiment.number)},
                           TextId::Confirmation,
                           Icon::Question}};
  if (lists.PlaceOf(experiment.number) != 0)
    questions.replace =
        Message{{TextId::AskToChangeExperiment}, TextId::ExperimentAlreadyAdded, Icon::Question};
  if (experiment.Points() == 0)
    questions.refusal =
        Message{{TextId::CannotSaveEmpty}, TextId::ExperimentEmpty, Icon::Information};
  return questions;
}

int PlaceToSave(const ExperimentLists& lists, std::int16_t number, int shown) {
  if (shown > 0 && shown <= lists.Count() && lists.At(shown).number == number) return shown;
  const int known = lists.PlaceOf(number);
  return known != 0 ? known : lists.Count() + 1;
}

bool SaveExperiment(ExperimentLists& lists, Experiment experiment, DisplayEntry display,
                    int shown) {
  const int place = PlaceToSave(lists, experiment.number, shown);
  if (place > lists.Count()) return lists.Append(std::move(experiment), std::move(display));
  lists.Replace(place, std::move(experiment), std::move(display));
  return true;
}

std::optional<Message> TellRepeatedNumbers(const ExperimentLists& lists) {
  std::map<std::int16_t, int> uses;
  for (const Experiment& experiment : lists.Experiments()) ++uses[experiment.number];
  std::string repeated;
  for (const auto& [number, count] : uses)
    if (count > 1) repeated += (repeated.empty() ? "" : ", ") + std::to_string(number);
  if (repeated.empty()) return std::nullopt;
  return Attention({{TextId::NumbersRepeated, {repeated}}});
}

std::optional<Message> RefuseEmptyLists(const ExperimentLists& lists) {
  if (!lists.Empty()) return std::nullopt;
  return Attention({TextId::NoExperimentSaved});
}

}  // namespace velmora
