#include "inference/FitSummary.h"

#include <cmath>
#include <utility>

#include "inference/Comparison.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

std::string ExplainedText(const PerVariable<double>& explained, TextStyle style) {
  std::string text;
  for (const auto& [name, value] :
       {std::pair("Cx", explained.Cx), {"Cs", explained.Cs}, {"Cp", explained.Cp}})
    if (!std::isnan(value))
      text += (text.empty() ? "" : ", ") + std::string(name) + " " +
              Formatted(value, kFour, style.separator);
  return text;
}

}  // namespace

std::string EndReason(const SearchResult& result, int limit, Language language) {
  const std::string generation = std::to_string(result.generations);
  switch (result.end) {
    case SearchEnd::Converged:
      if (result.starts > 0) return std::string(Text(TextId::EndedAllStarts, language));
      return Filled(TextId::EndedByEps, language, {generation, std::to_string(limit)});
    case SearchEnd::GenerationLimit:
      return Filled(TextId::EndedAtIter, language, {generation});
    case SearchEnd::EvaluationLimit:
      return std::string(Text(TextId::EndedAtEvaluations, language));
    case SearchEnd::Stopped:
      return Filled(TextId::EndedByStop, language, {generation});
    case SearchEnd::Fault:
    case SearchEnd::Refused:
      break;
  }
  return std::string(Text(TextId::EndedByFault, language));
}

std::vector<std::string> SummaryLines(const FitProblem& problem, const SearchResult& result,
                                      int limit, TextStyle style) {
  std::vector<std::string> lines = {EndReason(result, limit, style.language)};
  if (const std::string agreement = AgreementText(result, style.language); !agreement.empty())
    lines.push_back(agreement);
  try {
    const auto explained = ExplainedBy(Objective(problem).Simulate(result.best), problem);
    if (const std::string text = ExplainedText(explained, style); !text.empty())
      lines.push_back(Filled(TextId::ExplainedVariance, style.language, {text}));
  } catch (const ArithmeticFault&) {
    // What the end tells already.
  }
  return lines;
}

}  // namespace velmora
