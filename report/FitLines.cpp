#include "report/FitLines.h"

#include "inference/VerdictTexts.h"
#include "kinetics/KineticParameters.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kDigitsWithoutDeviation = 4;

/// "16.1 ± 1.2", or the value alone where it has no deviation.
EstimateLine NumbersOf(double value, const double* deviation, char separator) {
  if (deviation == nullptr)
    return {"", PlainText(value, separator, kDigitsWithoutDeviation), PlainText(value, separator)};
  return {"", WithDeviation(value, *deviation, separator),
          PlainText(value, separator) + " ± " + PlainText(*deviation, separator)};
}

}  // namespace

std::vector<EstimateLine> EstimateLines(const FitProblem& problem, const SearchResult& result,
                                        const Deviations& deviations, const Model* model,
                                        const ParameterVerdicts* verdicts, TextStyle style) {
  std::vector<EstimateLine> lines;
  for (std::size_t j = 0; j < problem.variables.size(); ++j) {
    const At position = problem.variables[j].position;
    const double* const deviation = j < deviations.values.size() ? &deviations.values[j] : nullptr;
    EstimateLine line = NumbersOf(result.best[j], deviation, style.separator);
    const std::string_view unit =
        model == nullptr ? ParameterAt(position).unit : UnitOf(position, *model);
    line.text = std::string(ParameterAt(position).label) + " " + line.number;
    if (!unit.empty()) line.text += " " + std::string(unit);
    if (verdicts != nullptr) line.text += ": " + Worded(verdicts->of[j], style);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace velmora
