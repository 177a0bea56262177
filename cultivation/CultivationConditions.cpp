#include "cultivation/CultivationConditions.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace velmora {
namespace {

constexpr std::array<std::string OptionTexts::*, kOptionTexts> kInOrder = {
    &OptionTexts::method, &OptionTexts::dataSet, &OptionTexts::production, &OptionTexts::model,
    &OptionTexts::fitted};

std::string OptionTexts::*OptionAt(int position) {
  assert(position >= 1 && position <= kOptionTexts);
  return kInOrder[static_cast<std::size_t>(position - 1)];
}

/// Place 0 and below become an index that no array has.
std::size_t IndexOf(int place) {
  return static_cast<std::size_t>(place) - 1;
}

/// The numbers of the experiments that no saved record belongs to, "2, 3"; a long list is cut.
std::string NumbersWithoutConditions(const std::vector<Experiment>& experiments,
                                     const CultivationConditions& conditions) {
  constexpr int kMostNamed = 20;
  std::string numbers;
  int named = 0;
  for (int place = 1; place <= static_cast<int>(experiments.size()); ++place) {
    if (place <= kMostExperiments && conditions.At(place).saved) continue;
    if (named++ == kMostNamed) return numbers + ", ...";
    numbers += (numbers.empty() ? "" : ", ") +
               std::to_string(experiments[static_cast<std::size_t>(place) - 1].number);
  }
  return numbers;
}

}  // namespace

std::string& OptionTexts::operator[](int position) {
  return this->*OptionAt(position);
}

const std::string& OptionTexts::operator[](int position) const {
  return this->*OptionAt(position);
}

ConditionsRecord& CultivationConditions::At(int place) {
  return records_.at(IndexOf(place));
}

const ConditionsRecord& CultivationConditions::At(int place) const {
  return records_.at(IndexOf(place));
}

int CultivationConditions::SavedCount() const {
  return static_cast<int>(
      std::count_if(records_.begin(), records_.end(),
                    [](const ConditionsRecord& record) { return record.saved; }));
}

void CultivationConditions::LimpaVet(int place) {
  At(place) = {};
}

void CultivationConditions::Clear() {
  *this = {};
}

void CultivationConditions::Remove(int place) {
  LimpaVet(place);
  const auto removed = records_.begin() + (place - 1);
  std::rotate(removed, removed + 1, records_.end());
}

std::optional<Message> RefuseMissing(const std::vector<Experiment>& experiments,
                                     const CultivationConditions& conditions) {
  if (static_cast<int>(experiments.size()) == conditions.SavedCount()) return std::nullopt;
  const std::string missing = NumbersWithoutConditions(experiments, conditions);
  if (missing.empty()) return Attention({TextId::CountsDiffer});
  return Attention({TextId::CountsDiffer, "\n", {TextId::ConditionsMissing, {missing}}});
}

std::optional<Message> RefuseRun(const std::vector<Experiment>& experiments,
                                 const CultivationConditions& conditions) {
  if (experiments.empty()) return Attention({TextId::NoExperiment});
  if (auto missing = RefuseMissing(experiments, conditions)) return missing;
  for (int place = 2; place <= static_cast<int>(experiments.size()); ++place)
    if (conditions.At(place).options != conditions.At(1).options)
      return Attention({TextId::OptionsDiffer, "\n", TextId::OptionsFootnote});
  return std::nullopt;
}

}  // namespace velmora
