#include "inference/VerdictTexts.h"

#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kDigits = 4;
constexpr int kProbabilityDigits = 2;
constexpr Decimals kOne{1, 1}, kThree{3, 3};

/// "Ks", from the label of the results, "Ks =".
std::string NameOf(At position) {
  std::string label(ParameterAt(position).label);
  return label.substr(0, label.find(" ="));
}

std::string Worded(const Finding& finding, TextStyle style) {
  const bool correlation = finding.kind == FindingKind::Together;
  return Filled(
      TextOf(TextId::IsAtLowerBound, finding.kind), style.language,
      {correlation ? Formatted(finding.value, kThree, style.separator)
                   : PlainText(finding.value, style.separator, kDigits),
       NameOf(finding.other), Text(TextOf(TextId::NoLowCs, finding.where), style.language)});
}

/// The number of the experiment at `place`.
std::string NumberAt(const FitProblem& problem, int place) {
  return std::to_string(problem.experiments.at(static_cast<std::size_t>(place) - 1).number);
}

std::string Worded(const Trend& trend, const FitProblem& problem, TextStyle style) {
  return Filled(TextId::ResidualsInRuns, style.language,
                {NumberAt(problem, trend.place), trend.variable, std::to_string(trend.runs),
                 std::to_string(trend.points),
                 PlainText(trend.probability, style.separator, kProbabilityDigits)});
}

std::string Worded(const WorstPoint& worst, const FitProblem& problem, TextStyle style) {
  const auto plain = [&](double value) { return PlainText(value, style.separator, kDigits); };
  return Filled(
      TextId::WorstPointIs, style.language,
      {NumberAt(problem, worst.place), worst.variable, plain(worst.time), plain(worst.measured),
       plain(worst.simulated), Formatted(worst.multiple, kOne, style.separator)});
}

}  // namespace

std::string Worded(const ParameterVerdict& verdict, TextStyle style) {
  if (verdict.Determined()) return std::string(Text(TextId::Determined, style.language));
  std::string text;
  for (const Finding& finding : verdict.findings)
    text += (text.empty() ? "" : "; ") + Worded(finding, style);
  return text;
}

std::vector<std::string> ParameterVerdictLines(const FitVerdict& verdict, const FitProblem& problem,
                                               TextStyle style) {
  std::vector<std::string> lines;
  for (std::size_t j = 0; j < verdict.parameters.of.size(); ++j)
    lines.push_back(NameOf(problem.variables[j].position) + ": " +
                    Worded(verdict.parameters.of[j], style) + ".");
  return lines;
}

std::string VerdictsText(const FitVerdict& verdict, const FitProblem& problem, TextStyle style) {
  std::string text = std::string(Text(TextId::VerdictsHeading, style.language)) + "\n";
  for (const std::string& line : ParameterVerdictLines(verdict, problem, style))
    text += line + "\n";
  for (const std::string& line : RunVerdictLines(verdict, problem, style)) text += line + "\n";
  return text;
}

std::vector<std::string> RunVerdictLines(const FitVerdict& verdict, const FitProblem& problem,
                                         TextStyle style) {
  std::vector<std::string> lines;
  if (verdict.kind == RunKind::Unfinished)
    lines.emplace_back(Text(TextId::SearchUnfinished, style.language));
  if (verdict.betterScore)
    lines.push_back(Filled(TextId::BesideTheMinimum, style.language,
                           {PlainText(*verdict.betterScore, style.separator, kDigits)}));
  if (FewAgree(verdict.agreeing, verdict.starts))
    lines.push_back(Filled(TextId::FewStartsAgree, style.language,
                           {std::to_string(verdict.agreeing), std::to_string(verdict.starts)}));
  for (const Trend& trend : verdict.trends) lines.push_back(Worded(trend, problem, style));
  if (verdict.trends.empty()) lines.emplace_back(Text(TextId::ResidualsRandom, style.language));
  if (verdict.worst) lines.push_back(Worded(*verdict.worst, problem, style));
  return lines;
}

}  // namespace velmora
