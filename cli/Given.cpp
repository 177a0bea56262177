#include "cli/Given.h"

#include <algorithm>

#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kBetween = ", ";

bool Contains(const std::vector<At>& positions, At position) {
  return std::find(positions.begin(), positions.end(), position) != positions.end();
}

/// Whether every model has the parameter, so also one that is not known.
bool IsCommon(At position) {
  return std::all_of(kModels.begin(), kModels.end(),
                     [=](const Model& model) { return Uses(model, position); });
}

/// Refuses what is given to a model, null where it is not known, that has no use for it.
void RequireUse(const Model* model, const std::vector<At>& given, const Wording& say) {
  for (const At position : given) {
    if (model != nullptr)
      cli::RequireUse(*model, position, say);
    else if (!IsCommon(position))
      throw Failure{ExitCode::Refused, say(TextId::ModelNotTold, {ParameterAt(position).name})};
  }
}

/// Refuses a parameter of the named model that has no value: none is given, and the row is that of
/// a model, null where it is not known, that does not use it.
void RequireValues(const Given& given, const Model* own, bool fits, const Wording& say) {
  const std::vector<At> positions = given.Positions();
  for (const Parameter& parameter : kFittable) {
    const At at = parameter.position;
    const bool stored = own != nullptr ? Uses(*own, at) : IsCommon(at);
    if (!Uses(*given.model, at) || stored || Contains(positions, at)) continue;
    throw Failure{ExitCode::Refused, say(fits ? TextId::ValueMissing : TextId::ValueNotSet,
                                         {given.model->name, parameter.name})};
  }
}

void PutInto(ConditionsRecord& record, const Given& given) {
  if (given.model != nullptr) {
    SetModelSwitches(*given.model, record.row);
    record.options.model = given.model->name;
  }
  for (const Assignment& value : given.values) record.row[value.position] = value.value;
  for (const FitVariable& fitted : given.fitted) record.row[fitted.position] = fitted.start;
}

/// Adds a row in the table's order, or replaces that of its parameter.
void PutInto(std::vector<FitVariable>& table, const FitVariable& row) {
  std::erase_if(table, [&](const FitVariable& old) { return old.position == row.position; });
  const auto behind = std::find_if(table.begin(), table.end(), [&](const FitVariable& other) {
    return FittableIndex(other.position) > FittableIndex(row.position);
  });
  table.insert(behind, row);
}

}  // namespace

std::vector<At> Given::Positions() const {
  std::vector<At> positions = PositionsOf(fitted);
  for (const Assignment& value : values) positions.push_back(value.position);
  return positions;
}

Given GivenBy(const std::optional<std::string>& model, const std::vector<std::string>& set,
              const std::vector<std::string>& fit, const Wording& say) {
  Given given;
  if (model) given.model = &ModelNamed(*model, say);
  for (const std::string& text : set) given.values.push_back(FittableAssignment(text, say));
  given.fitted = FittedRanges(fit, say);
  return given;
}

std::vector<UnitChange> UnitChanges(const CultivationConditions& conditions, const Given& given) {
  std::vector<UnitChange> changes;
  const Model* const own = RecognisedModel(conditions.At(1), conditions.fitted);
  if (own == nullptr || given.model == nullptr) return changes;
  const std::vector<At> anew = given.Positions();
  for (const Parameter& parameter : kFittable) {
    const At at = parameter.position;
    const std::string_view before = UnitOf(at, *own), now = UnitOf(at, *given.model);
    if (Uses(*own, at) && Uses(*given.model, at) && before != now && !Contains(anew, at))
      changes.push_back({parameter.name, before, given.model->name, now});
  }
  return changes;
}

void PutInto(CultivationConditions& conditions, const Given& given, bool fits, const Wording& say) {
  if (given.model != nullptr) RequireUse(given.model, PositionsOf(conditions.fitted), say);
  for (int place = 1; place <= kMostExperiments; ++place) {
    ConditionsRecord& record = conditions.At(place);
    if (!record.saved) continue;
    const Model* const own = RecognisedModel(record, conditions.fitted);
    RequireUse(given.model != nullptr ? given.model : own, given.Positions(), say);
    if (given.model != nullptr) RequireValues(given, own, fits, say);
    PutInto(record, given);
  }
  for (const FitVariable& row : given.fitted) PutInto(conditions.fitted, row);
  if (fits) RequireNotFitted(given.values, conditions.fitted, say);
}

const Model& ModelNamed(const std::string& name, const Wording& say) {
  const Model* const model = FindModel(name);
  if (model == nullptr) throw Failure{ExitCode::Usage, say(TextId::UnknownModel, {name})};
  return *model;
}

void RequireUse(const Model& model, At position, const Wording& say) {
  if (Uses(model, position)) return;
  const std::string_view name = ParameterAt(position).name;
  throw Failure{ExitCode::Refused,
                say(TextId::ModelLacks, {model.name, name, ParameterNames(model)})};
}

std::string ParameterNames(const Model& model) {
  std::string names;
  for (const Parameter& parameter : kFittable)
    if (Uses(model, parameter.position)) Join(names, parameter.name, kBetween);
  return names;
}

}  // namespace velmora::cli
