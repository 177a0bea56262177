#include "cultivation/FitSetUp.h"

#include "language/Numbers.h"

namespace velmora {
namespace {

std::optional<Message> RefuseRow(const FittedParameter& row) {
  if (row.value == 0 || row.lower == 0 || row.upper == 0)
    return Attention(
        {TextId::PossibleErrors, "\n", TextId::FitEntryMissing, "\n", TextId::BoundIsZero});
  if (row.value < row.lower || row.value > row.upper)
    return Attention({TextId::FitEntryOutOfBounds});
  return std::nullopt;
}

}  // namespace

std::vector<FittedParameter> VarAjustadas(const CultivationForm& form, char separator) {
  const auto number = [=](const std::string& text) { return ReadBox(text, separator).value_or(0); };
  std::vector<FittedParameter> table;
  for (std::size_t row = 0; row < kFittable.size(); ++row) {
    const auto& [ticked, lower, upper] = form.fit[row];
    const At position = kFittable[row].position;
    if (ticked)
      table.push_back({number(upper), number(lower), static_cast<std::int16_t>(position),
                       number(form.At(position))});
  }
  return table;
}

std::vector<FittedParameter> WithValuesOf(const ConditionsRow& row,
                                          std::vector<FittedParameter> table) {
  for (FittedParameter& fitted : table) fitted.value = row[fitted.code];
  return table;
}

std::optional<Refusal> RefuseFitRows(std::span<const FittedParameter> table) {
  for (const FittedParameter& row : table)
    if (auto message = RefuseRow(row)) return Refusal{*message, static_cast<At>(row.code)};
  return std::nullopt;
}

CheckedFit ChecarVarAjustadas(std::span<const FittedParameter> table) {
  CheckedFit checked{VariablesOf(table), RefuseFitRows(table)};
  if (!checked.refusal && table.empty())
    checked.refusal =
        Refusal{{{"Escolha pelo menos um parâmetro para ajustar"}, "Aviso", Icon::Information},
                std::nullopt};
  return checked;
}

std::vector<FitVariable> VariablesOf(std::span<const FittedParameter> table) {
  std::vector<FitVariable> variables;
  for (const FittedParameter& row : table)
    variables.push_back({static_cast<At>(row.code), row.lower, row.upper, row.value});
  return variables;
}

FitProblem ProblemOf(const std::vector<Experiment>& experiments,
                     const CultivationConditions& conditions) {
  FitProblem problem{experiments, {}, VariablesOf(conditions.fitted)};
  for (int place = 1; place <= static_cast<int>(experiments.size()); ++place)
    problem.rows.push_back(VectorOf(conditions.At(place).row));
  return problem;
}

}  // namespace velmora
