#include "report/Summary.h"

#include <array>
#include <cmath>
#include <ctime>

#include "inference/Comparison.h"
#include "inference/VerdictTexts.h"
#include "kinetics/KineticParameters.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kSummaryDigits = 4;
constexpr std::initializer_list<int> kWidths = {30, 42, 48, 80};

/// Day and hour in the machine's own time.
std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local)};
}

std::string LabelOf(const FitVariable& variable) {
  std::string label(ParameterAt(variable.position).label);
  return label.erase(label.find_last_not_of(" =") + 1);
}

TextId EndOf(SearchEnd end) {
  switch (end) {
    case SearchEnd::Converged:
      return TextId::EndConverged;
    case SearchEnd::GenerationLimit:
      return TextId::EndAtGenerations;
    case SearchEnd::EvaluationLimit:
      return TextId::EndAtEvaluations;
    case SearchEnd::Stopped:
      return TextId::EndStopped;
    case SearchEnd::Refused:
    case SearchEnd::Fault:
      break;
  }
  return TextId::EndFault;
}

class Summary {
 public:
  Summary(const ReportSummary& summary, TextStyle style) : summary_(summary), style_(style) {}

  rich::Document Document(const FitProblem& problem, const SearchResult& result,
                          const Deviations& deviations, const std::optional<FitVerdict>& verdict) {
    Add(Text(TextId::SummaryHeading), rich::Look::Heading);
    AddOrigin();
    AddSearch(result, deviations);
    AddParameters(problem, result, deviations, verdict);
    return std::move(document_);
  }

 private:
  std::string Text(TextId id) const { return std::string(velmora::Text(id, style_.language)); }
  std::string Short(double value) const {
    return std::isfinite(value) ? PlainText(value, style_.separator, kSummaryDigits) : "-";
  }
  void Add(std::string text, rich::Look look = rich::Look::Together) {
    document_.emplace_back(rich::Paragraph{std::move(text), look});
  }
  void Add(TextId text, std::initializer_list<std::string_view> arguments) {
    Add(Filled(text, style_.language, arguments));
  }

  void AddOrigin() {
    Add(TextId::ReportProgram, {VELMORA_VERSION});
    Add(TextId::ReportDate, {summary_.date});
    std::string files;
    for (const std::string& file : summary_.files) files += (files.empty() ? "" : ", ") + file;
    if (!files.empty()) Add(TextId::ReportFiles, {files});
    Add(Text(TextId::ReportUnits));
  }

  /// The settings but for the seed mean something to the differential evolution alone.
  void AddSearch(const SearchResult& result, const Deviations& deviations) {
    const bool evolution = summary_.method == Method::ED;
    Add(TextId::ReportMethod,
        {Text(evolution ? TextId::MethodEvolution : TextId::MethodMarquardt)});
    if (evolution) Add(TextId::ReportSettings, {Settings()});
    Add(TextId::ReportSeed, {std::to_string(summary_.settings.IU)});
    Add(TextId::ReportEnd, {Text(EndOf(result.end))});
    if (std::string line = AgreementText(result, style_.language); !line.empty())
      Add(std::move(line));
    Add(TextId::ReportSquares,
        {Short(result.score), Short(SquareError(result.score, deviations.observations)),
         std::to_string(deviations.observations)});
    if (!summary_.explained) return;
    const auto& [Cx, Cs, Cp] = *summary_.explained;
    Add(TextId::ReportExplained, {Short(Cx), Short(Cs), Short(Cp)});
  }

  std::string Settings() const {
    const EstimationSettings& settings = summary_.settings;
    const std::pair<const char*, double> named[] = {
        {"NPOP", settings.NPOP}, {"ITER", settings.ITER},   {"PCROS", settings.PCROS},
        {"FACT", settings.FACT}, {"FACT1", settings.FACT1}, {"EPS", settings.EPS}};
    std::string text;
    for (const auto& [name, value] : named)
      text += (text.empty() ? "" : "; ") + std::string(name) + " = " +
              PlainText(value, style_.separator);
    return text;
  }

  void AddParameters(const FitProblem& problem, const SearchResult& result,
                     const Deviations& deviations, const std::optional<FitVerdict>& verdict) {
    rich::Table table{kWidths,
                      {{Text(TextId::ReportParameter), Text(TextId::ReportValue),
                        Text(TextId::ReportInterval), WhatTheDataTell()}}};
    for (std::size_t j = 0; j < problem.variables.size(); ++j) {
      const bool known = !deviations.fault && j < deviations.values.size();
      table.rows.push_back(
          {LabelOf(problem.variables[j]),
           known ? WithDeviation(result.best[j], deviations.values[j], style_.separator)
                 : Short(result.best[j]),
           IntervalAt(j), verdict ? Worded(verdict->parameters.of.at(j), style_) : ""});
    }
    document_.emplace_back(std::move(table));
  }

  std::string WhatTheDataTell() const {
    std::string heading = Text(TextId::VerdictsHeading);
    heading.pop_back();  // its colon
    return heading;
  }

  std::string IntervalAt(std::size_t j) const {
    if (!summary_.intervals) return "-";
    const auto& [lower, upper, profile] = summary_.intervals->of.at(j);
    const TextId text = lower && upper ? TextId::IntervalBetween
                        : lower        ? TextId::IntervalAbove
                        : upper        ? TextId::IntervalBelow
                                       : TextId::IntervalOpen;
    return Filled(text, style_.language, {Short(lower.value_or(0)), Short(upper.value_or(0))});
  }

  const ReportSummary& summary_;
  TextStyle style_;
  rich::Document document_;
};

}  // namespace

ReportSummary SummaryOf(const FitProblem& problem, const SearchResult& result, Method method,
                        const EstimationSettings& settings, std::vector<std::string> files) {
  ReportSummary summary{Now(), std::move(files), method, settings, {}, {}};
  if (result.fault) return summary;
  summary.explained = ExplainedBy(Objective(problem).Simulate(result.best), problem);
  summary.intervals = LinearIntervals(problem, result.best);
  return summary;
}

rich::Document SummaryDocument(const ReportSummary& summary, const FitProblem& problem,
                               const SearchResult& result, const Deviations& deviations,
                               const std::optional<FitVerdict>& verdict, TextStyle style) {
  return Summary(summary, style).Document(problem, result, deviations, verdict);
}

}  // namespace velmora
