#include "cultivation/FitSetUp.h"

#include <cassert>
#include <cmath>
#include <limits>

#include "estimation/EvolucaoDiferencial.h"
#include "estimation/Marquardt.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

// These are said alike in both languages.
constexpr const char* kChooseAParameter = "Escolha pelo menos um parâmetro para ajustar";
constexpr const char* kNotice = "Aviso";
constexpr const char* kOverflow = "                Overflow!";
constexpr const char* kInversionError = "ERRO 8002!";

/// 0 for no number, and the infinite for one that no double holds: neither can be fitted.
double ValueOf(const Entry& box, char separator) {
  if (box.OutOfRange(separator)) return std::numeric_limits<double>::infinity();
  return box.Number(separator).value_or(0);
}

std::optional<Message> RefuseRow(const FitVariable& row) {
  for (const double value : {row.start, row.lower, row.upper})
    if (!std::isfinite(value)) return Attention({TextId::OutOfBounds});
  if (row.start == 0 || row.lower == 0 || row.upper == 0)
    return Attention(
        {TextId::PossibleErrors, "\n", TextId::FitEntryMissing, "\n", TextId::BoundIsZero});
  if (row.start < row.lower || row.start > row.upper)
    return Attention({TextId::FitEntryOutOfBounds});
  return std::nullopt;
}

}  // namespace

std::vector<FitVariable> VarAjustadas(const CultivationForm& form, char separator) {
  const auto number = [=](const Entry& box) { return ValueOf(box, separator); };
  std::vector<FitVariable> table;
  for (std::size_t row = 0; row < kFittable.size(); ++row) {
    const auto& [ticked, lower, upper] = form.fit[row];
    const At position = kFittable[row].position;
    if (ticked)
      table.push_back({position, number(lower), number(upper), number(form.At(position))});
  }
  return table;
}

std::vector<FitVariable> StartingFrom(const ConditionsRow& row, std::vector<FitVariable> table) {
  for (FitVariable& fitted : table) fitted.start = row[fitted.position];
  return table;
}

std::vector<At> PositionsOf(std::span<const FitVariable> table) {
  std::vector<At> positions;
  for (const FitVariable& fitted : table) positions.push_back(fitted.position);
  return positions;
}

std::optional<Refusal> RefuseFitRows(std::span<const FitVariable> table) {
  for (const FitVariable& row : table)
    if (auto message = RefuseRow(row)) return Refusal{*message, row.position};
  return std::nullopt;
}

std::optional<Refusal> ChecarVarAjustadas(std::span<const FitVariable> table) {
  if (auto refusal = RefuseFitRows(table)) return refusal;
  if (!table.empty()) return std::nullopt;
  return Refusal{{{kChooseAParameter}, kNotice, Icon::Information}, std::nullopt};
}

Message SettingsRefusal() {
  return Attention({TextId::OutOfBounds}, Icon::Critical);
}

Message BoundsRefusal() {
  return Attention({TextId::CheckBounds});
}

Message InversionMessage() {
  return {{kOverflow, "\n", "\n", TextId::ChangeParameters}, kInversionError, Icon::Critical};
}

FitProblem ProblemOf(const std::vector<Experiment>& experiments,
                     const CultivationConditions& conditions) {
  FitProblem problem{experiments, {}, conditions.fitted};
  for (int place = 1; place <= static_cast<int>(experiments.size()); ++place)
    problem.rows.push_back(VectorOf(conditions.At(place).row));
  return problem;
}

SearchResult SearchBy(Method method, const FitProblem& problem, const EstimationSettings& settings,
                      SearchObserver& observer, unsigned threads) {
  assert(method == Method::ED || method == Method::LM);
  if (method == Method::LM)
    return SearchMarquardt(problem, {.IU = settings.IU, .threads = threads}, observer);
  return Search(problem, settings, observer, Objective::Workspace(0, threads));
}

}  // namespace velmora
