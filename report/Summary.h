// The summary that a report begins with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cultivation/CultivationForm.h"
#include "estimation/Deviations.h"
#include "estimation/EstimationSettings.h"
#include "estimation/ResultTexts.h"
#include "inference/Intervals.h"
#include "inference/Verdicts.h"
#include "report/RichText.h"

namespace velmora {

/// Where a fit came from, and how well it describes the data.
struct ReportSummary {
  std::string date;                // as it is written
  std::vector<std::string> files;  // those that were read; empty where they are not known
  Method method = Method::None;
  EstimationSettings settings;
  std::optional<PerVariable<double>> explained;  // R², of g/L; none after a fault
  std::optional<Intervals> intervals;            // of the linear theory
};

/// The summary of a search with a result; the date is now.
ReportSummary SummaryOf(const FitProblem& problem, const SearchResult& result, Method method,
                        const EstimationSettings& settings, std::vector<std::string> files);

/// Program, date, files, units, model-independent facts of the search, and a table of the fitted
/// parameters: value with its deviation, in the digits that this leaves certain, 95 % interval and
/// verdict.
rich::Document SummaryDocument(const ReportSummary& summary, const FitProblem& problem,
                               const SearchResult& result, const Deviations& deviations,
                               const std::optional<FitVerdict>& verdict, TextStyle style);

}  // namespace velmora
