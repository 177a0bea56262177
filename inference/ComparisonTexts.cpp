#include "inference/ComparisonTexts.h"

#include <cmath>

#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kSumDigits = 4, kMostDecimals = 8;
constexpr Decimals kTwo{2, 2}, kThree{3, 3};
constexpr const char* kNoValue = "–";

/// A number, or a sign for one that is infinite or has no value.
std::string Cell(double value, Decimals decimals, char separator) {
  if (std::isinf(value)) return "∞";
  return std::isnan(value) ? kNoValue : Formatted(value, decimals, separator);
}

/// A sum of squared errors: four digits, so that neighbours of a column compare.
std::string SumCell(double value, char separator) {
  if (!(value > 0)) return PlainText(value, separator);
  const int decimals = kSumDigits - 1 - static_cast<int>(std::floor(std::log10(value)));
  if (decimals < 0 || decimals > kMostDecimals) return PlainText(value, separator, kSumDigits);
  return Formatted(value, {decimals, decimals}, separator);
}

std::vector<std::string> Headings(Language language) {
  const auto text = [=](TextId id) { return std::string(Text(id, language)); };
  return {text(TextId::ModelHeading),  "D",     "SSE",   "AICc",  "ΔAICc",
          text(TextId::WeightHeading), "R² Cx", "R² Cs", "R² Cp", text(TextId::StartsHeading),
          text(TextId::VerdictHeading)};
}

std::string VerdictOf(const ComparedModel& compared, Language language) {
  const ParameterVerdicts& verdicts = compared.verdicts;
  std::string determined =
      Filled(TextId::CountDetermined, language,
             {std::to_string(verdicts.CountDetermined()), std::to_string(verdicts.of.size())});
  if (compared.result.end == SearchEnd::Converged) return determined;
  return determined + ", " + std::string(Text(TextId::SearchAtItsLimit, language));
}

std::vector<std::string> CellsOf(const ComparedModel& compared, double leastCriterion,
                                 TextStyle style, bool allDigits) {
  const char separator = style.separator;
  const auto cell = [=](double value, Decimals decimals) {
    return allDigits && std::isfinite(value) ? PlainText(value, separator)
                                             : Cell(value, decimals, separator);
  };
  const SearchResult& result = compared.result;
  const auto& [Cx, Cs, Cp] = compared.explained;
  return {std::string(compared.model->name),
          std::to_string(compared.variables.size()),
          allDigits ? PlainText(result.score, separator) : SumCell(result.score, separator),
          cell(compared.criterion, kTwo),
          cell(compared.criterion - leastCriterion, kTwo),
          cell(compared.weight, kThree),
          cell(Cx, kFour),
          cell(Cs, kFour),
          cell(Cp, kFour),
          std::to_string(result.agreeing) + "/" + std::to_string(result.starts),
          VerdictOf(compared, style.language)};
}

std::string NamesOf(std::span<const ComparedModel> models) {
  std::string names;
  for (const ComparedModel& compared : models)
    names += (names.empty() ? "" : ", ") + std::string(compared.model->name);
  return names;
}

/// Their names, and how much of the weight they have together.
std::string LevelRemark(std::span<const ComparedModel> level, TextStyle style) {
  double weight = 0;
  for (const ComparedModel& compared : level) weight += compared.weight;
  return Filled(TextId::ModelsNotToldApart, style.language,
                {NamesOf(level), Formatted(100 * weight, {0, 0}, style.separator)});
}

}  // namespace

std::string ComparisonHeading(const Comparison& comparison, Language language) {
  return Filled(TextId::ModelsCompared, language,
                {std::to_string(comparison.Ranked().size()),
                 std::to_string(comparison.models.size()), std::to_string(comparison.values)});
}

std::vector<std::vector<std::string>> ComparisonCells(const Comparison& comparison, TextStyle style,
                                                      bool allDigits) {
  std::vector<std::vector<std::string>> cells{Headings(style.language)};
  const auto ranked = comparison.Ranked();
  for (const ComparedModel& compared : ranked)
    cells.push_back(CellsOf(compared, ranked.front().criterion, style, allDigits));
  return cells;
}

std::string WhyNotRanked(const ComparedModel& compared, std::span<const Experiment> experiments,
                         Language language) {
  if (compared.unknown)
    return Filled(TextId::NoRangeFor, language, {ParameterAt(*compared.unknown).name});
  if (!compared.result.fault) return std::string(Text(TextId::SearchStopped, language));
  const ArithmeticFault& fault = *compared.result.fault;
  const int number =
      fault.place == 0 ? 0 : experiments[static_cast<std::size_t>(fault.place) - 1].number;
  return FaultDescription(fault, number, language);
}

std::vector<std::string> ComparisonRemarks(const Comparison& comparison,
                                           std::span<const Experiment> experiments,
                                           TextStyle style) {
  std::vector<std::string> lines;
  if (const auto level = comparison.Level(); level.size() > 1)
    lines.push_back(LevelRemark(level, style));
  std::vector<ComparedModel> doubtful;
  for (const ComparedModel& compared : comparison.Level())
    if (FewAgree(compared.result.agreeing, compared.result.starts)) doubtful.push_back(compared);
  if (!doubtful.empty())
    lines.push_back(Filled(TextId::PlacesMayChange, style.language, {NamesOf(doubtful)}));
  const auto ranked = comparison.Ranked();
  if (!ranked.empty() && std::isinf(ranked.back().criterion))
    lines.push_back(
        Filled(TextId::TooFewForCriterion, style.language, {std::to_string(comparison.values)}));
  for (const ComparedModel& compared : std::span(comparison.models).subspan(ranked.size()))
    lines.push_back(
        Filled(TextId::NotRanked, style.language,
               {compared.model->name, WhyNotRanked(compared, experiments, style.language)}));
  return lines;
}

std::vector<std::string> BestModelLines(const Comparison& comparison, TextStyle style,
                                        bool allDigits) {
  if (comparison.Level().empty()) return {};
  const ComparedModel& best = comparison.models.front();
  std::vector<std::string> lines{Filled(TextId::BestModel, style.language, {best.model->name}),
                                 Equation(*best.model)};
  for (std::size_t j = 0; j < best.variables.size(); ++j) {
    const double deviation = j < best.deviations.size() ? best.deviations[j] : 0;
    lines.push_back(ShortLine(best.variables[j], best.result.best[j], deviation, best.model,
                              allDigits, style.separator));
  }
  return lines;
}

}  // namespace velmora
