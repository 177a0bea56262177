#include "estimation/ResultTexts.h"

#include "kinetics/KineticParameters.h"
#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::string_view kSeparatorLine = "-----------------------------------------------------";
constexpr std::string_view kPlusMinus = " +/- ";

std::string Line(std::string_view text) {
  return std::string(text) + "\n";
}

/// A text of the table followed by a value; the table ends some of these texts in a blank.
std::string ValueLine(TextId id, double value, TextStyle style) {
  std::string line(Text(id, style.language));
  if (!line.ends_with(' ')) line += ' ';
  return Line(line + PlainText(value, style.separator));
}

std::string ParameterLine(const FitVariable& variable, double value, TextStyle style) {
  return std::string(ParameterAt(variable.position).label) + " " +
         Formatted(value, kTwoToThirteen, style.separator);
}

std::string ErrorLines(double sum, int observations, TextStyle style) {
  return ValueLine(TextId::SumOfSquaredErrors, sum, style) +
         ValueLine(TextId::SquareError, SquareError(sum, observations), style);
}

/// The fault in words, and where the best vector was found before it.
std::string FaultLines(const FitProblem& problem, const SearchResult& result, Language language) {
  const ArithmeticFault& fault = *result.fault;
  const int number = fault.place == 0
                         ? 0
                         : problem.experiments.at(static_cast<std::size_t>(fault.place) - 1).number;
  std::string lines = Line(std::string(Text(TextId::NotCompleted, language)) +
                           FaultDescription(fault, number, language));
  if (!result.HasResult()) return lines;
  if (result.bestGeneration == 0) return lines + Line(Text(TextId::BestOfPopulation, language));
  return lines +
         Line(Filled(TextId::BestOfGeneration, language, {std::to_string(result.bestGeneration)}));
}

}  // namespace

double SquareError(double sumOfSquaredErrors, int observations) {
  return observations == 0 ? 0 : sumOfSquaredErrors / observations;
}

std::string ParameterLines(std::span<const FitVariable> variables, std::span<const double> best,
                           TextStyle style) {
  std::string lines;
  for (std::size_t j = 0; j < variables.size(); ++j)
    lines += Line(ParameterLine(variables[j], best[j], style));
  return lines;
}

std::string ShortLine(const FitVariable& variable, double value, double deviation,
                      const Model* model, bool allDigits, char separator) {
  const Parameter& parameter = ParameterAt(variable.position);
  std::string line = std::string(parameter.label) + " ";
  line += allDigits ? PlainText(value, separator) : WithDeviation(value, deviation, separator);
  if (allDigits && deviation > 0) line += " ± " + PlainText(deviation, separator);
  const std::string_view unit = model ? UnitOf(variable.position, *model) : parameter.unit;
  if (!unit.empty()) line += " " + std::string(unit);
  return line;
}

std::string ProgressText(std::span<const FitVariable> variables, const Generation& generation,
                         TextStyle style) {
  return Line(Text(TextId::EstimatedHeading, style.language)) +
         ParameterLines(variables, generation.best, style) +
         ErrorLines(generation.score, generation.observations, style) +
         Line(std::string(kFunctionCalls) + std::to_string(generation.functionCalls)) +
         Line(kSeparatorLine);
}

std::string AgreementText(const SearchResult& result, Language language) {
  if (result.starts == 0) return {};
  return Filled(TextId::StartsThatAgree, language,
                {std::to_string(result.agreeing), std::to_string(result.starts)});
}

std::string EndText(const FitProblem& problem, const SearchResult& result, Language language) {
  switch (result.end) {
    case SearchEnd::Converged:
      return Line(Text(TextId::EndOfEstimation, language));
    case SearchEnd::Stopped:
      return Line(Text(TextId::NotCompleted, language));
    case SearchEnd::Fault:
      return FaultLines(problem, result, language);
    case SearchEnd::EvaluationLimit:
      return Line(Text(TextId::EvaluationLimitReached, language));
    case SearchEnd::GenerationLimit:
    case SearchEnd::Refused:
      break;
  }
  return Line(Text(TextId::DidNotConverge, language)) +
         Line(Text(TextId::DidNotConvergeAdvice, language));
}

std::string FinalText(const FitProblem& problem, const SearchResult& result,
                      const Deviations& deviations, TextStyle style) {
  const bool known = !deviations.fault;
  std::string text =
      Line(Text(known ? TextId::EstimatedWithDeviation : TextId::EstimatedHeading, style.language));
  for (std::size_t j = 0; j < problem.variables.size(); ++j) {
    std::string line = ParameterLine(problem.variables[j], result.best[j], style);
    if (known)
      line += std::string(kPlusMinus) +
              Formatted(deviations.values[j], kTwoToThirteen, style.separator);
    text += Line(line);
  }
  const std::string agreement = AgreementText(result, style.language);
  return text + ErrorLines(result.score, deviations.observations, style) +
         (agreement.empty() ? "" : Line(agreement)) + EndText(problem, result, style.language);
}

}  // namespace velmora
