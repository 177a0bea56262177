// The report of a fit, as a value and as rich text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/FileFault.h"
#include "estimation/Deviations.h"
#include "estimation/ResultTexts.h"
#include "estimation/SearchResult.h"
#include "inference/Verdicts.h"
#include "report/RichText.h"
#include "report/Summary.h"

namespace velmora {

/// A chart; the text with id `titleId` stands above it.
struct ReportPicture {
  TextId titleId{};
  rich::Picture picture;
};

/// A search with a result, and all that its report tells.
struct ReportContent {
  TextStyle style;
  std::vector<ConditionsRecord> records;  // of the problem's experiments, by place
  FitProblem problem;
  SearchResult result;
  Deviations deviations;
  std::vector<ReportPicture> pictures;
  std::optional<FitVerdict> verdict{};     // what the data can tell
  std::optional<ReportSummary> summary{};  // what the report begins with
};

/// What the search of `problem` came to, with the `conditions` of its experiments, one record for
/// each; without pictures.
ReportContent ReportOf(const FitProblem& problem, const CultivationConditions& conditions,
                       const SearchResult& result, const Deviations& deviations,
                       const FitVerdict& verdict, TextStyle style);

/// The report's lines, tables and pictures in their order. The pictures come last, so that the
/// numbers stand together.
rich::Document ReportDocument(const ReportContent& content);

/// The report as an RTF file's bytes: 7-bit, lines ended by CR LF, every letter escaped.
std::string Relatorio(const ReportContent& content);

/// Writes the report to `path`; what was there is replaced only by the whole new file.
std::optional<FileFault> SaveReport(const ReportContent& content, const std::string& path);

}  // namespace velmora
