#include "cultivation/ConditionsSetUp.h"

#include <algorithm>
#include <cmath>

#include "cultivation/FitSetUp.h"
#include "kinetics/Modelos.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

/// The values that must be above 0, and what is said where one is not.
struct PositiveValue {
  At position;
  TextId text;
};
constexpr std::array<PositiveValue, 5> kPositive = {{{At::Cx0, TextId::Cx0NotPositive},
                                                     {At::Cs0, TextId::Cs0NotPositive},
                                                     {At::T, TextId::TimeNotPositive},
                                                     {At::Yxs, TextId::YxsNotPositive},
                                                     {At::YpsTyped, TextId::YpsNotPositive}}};

std::optional<Refusal> RefuseChoices(const CultivationForm& form, int place, char separator) {
  if (place == 0) return Refusal{Attention({TextId::NoExperimentSelected}), std::nullopt};
  if (auto refusal = RefuseFitRows(VarAjustadas(form, separator))) return refusal;
  if (form.method == Method::None) return Refusal{Attention({TextId::NoMethod}), std::nullopt};
  if (form.production == Production::None)
    return Refusal{Attention({TextId::NoProduction}), std::nullopt};
  if (!form.modelConfirmed || FindModel(form.model) == nullptr)
    return Refusal{Attention({TextId::ConfirmModel}), std::nullopt};
  const bool fits =
      std::any_of(form.fit.begin(), form.fit.end(), [](const FitRow& row) { return row.ticked; });
  if (form.method != Method::Manual && !fits)
    return Refusal{Attention({TextId::NothingFitted}), std::nullopt};
  if (form.yields == Yields::None) return Refusal{Attention({TextId::NoYields}), std::nullopt};
  return std::nullopt;
}

/// Reads every box into `row`.
std::optional<Refusal> ReadValues(const CultivationForm& form, char separator, ConditionsRow& row) {
  for (int position = 1; position <= ConditionsRow::kCount; ++position) {
    const At at = static_cast<At>(position);
    if (!IsEntered(at)) continue;
    const auto value = form.At(at).Number(separator);
    const auto positive = std::find_if(kPositive.begin(), kPositive.end(),
                                       [at](const PositiveValue& p) { return p.position == at; });
    const bool mustBePositive = positive != kPositive.end();
    if (!value || (mustBePositive && !(*value > 0))) {
      const bool tooSmall = mustBePositive && !form.At(at).OutOfRange(separator);
      return Refusal{Attention({tooSmall ? positive->text : TextId::OutOfBounds}), at};
    }
    row[position] = *value;
  }
  return std::nullopt;
}

double AlfaOfYields(const ConditionsRow& row) {
  return row[At::YpsTyped] / row[At::Yxs];
}

/// Yields of which no double holds the quotient.
std::optional<Refusal> RefuseYields(const CultivationForm& form, const ConditionsRow& row) {
  if (form.yields == Yields::Stoichiometric || std::isfinite(AlfaOfYields(row)))
    return std::nullopt;
  return Refusal{Attention({TextId::OutOfBounds}), At::YpsTyped};
}

/// Sets alpha as production and yields decide it; what to show for it, if it was decided.
std::optional<Entry> DecideAlfa(const CultivationForm& form, char separator, ConditionsRow& row) {
  if (form.production == Production::PNAC) {
    row[At::alpha] = 0;
    return Entry("0", 0);
  }
  if (form.yields == Yields::Stoichiometric) return std::nullopt;
  row[At::alpha] = AlfaOfYields(row);
  return ShownAlfa(row, separator);
}

void DecideYields(Yields yields, ConditionsRow& row) {
  const bool global = yields == Yields::Global;
  row[At::Yps] = global ? 1 : row[At::YpsTyped];
  row[At::Fp] = global ? 0 : 1;
}

std::string JoinNames(std::initializer_list<std::string_view> names) {
  std::string joined;
  for (const std::string_view name : names)
    if (!name.empty()) joined += (joined.empty() ? "" : " ") + std::string(name);
  return joined;
}

OptionTexts OptionsOf(const CultivationForm& form) {
  OptionTexts options;
  options.method = NameOf(form.method);
  for (std::size_t i = 0; i < kVariableNames.size(); ++i)
    if (form.dataSet[i]) options.dataSet = JoinNames({options.dataSet, kVariableNames[i]});
  options.production = NameOf(form.production);
  options.model = form.model;
  for (std::size_t row = 0; row < kFittable.size(); ++row)
    if (form.fit[row].ticked) options.fitted = JoinNames({options.fitted, kFittable[row].name});
  return options;
}

}  // namespace

Saved SalvarCondCult(const CultivationForm& form, int place, std::int16_t number, char separator,
                     CultivationConditions& conditions) {
  Saved saved;
  saved.refusal = RefuseChoices(form, place, separator);
  if (saved.refusal) return saved;
  ConditionsRecord& target = conditions.At(place);

  ConditionsRecord record{true, number, {}, OptionsOf(form)};
  saved.refusal = ReadValues(form, separator, record.row);
  if (saved.refusal) return saved;
  saved.refusal = RefuseYields(form, record.row);
  if (saved.refusal) return saved;
  SetModelSwitches(*FindModel(form.model), record.row);
  saved.shownAlfa = DecideAlfa(form, separator, record.row);
  DecideYields(form.yields, record.row);
  target = record;
  if (form.method != Method::Manual) conditions.fitted = VarAjustadas(form, separator);
  return saved;
}

}  // namespace velmora
