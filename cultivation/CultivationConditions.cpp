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

}  // namespace velmora
