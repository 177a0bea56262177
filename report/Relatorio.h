// The report of a fit, as a value and as rich text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/FileFault.h"
#include "estimation/Deviations.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/ResultTexts.h"
#include "report/RichText.h"

namespace velmora {

/// A chart; the text with id `titleId` stands above it.
struct ReportPicture {
  TextId titleId{};
  rich::Picture picture;
};

/// `best` is as long as `variables`; `deviations` too, or empty where they could not be computed.
struct ReportContent {
  TextStyle style;
  std::vector<ConditionsRecord> records;  // of all experiments, by place
  std::vector<std::string> descriptions;  // of the experiments, by place, UTF-8
  std::vector<FitVariable> variables;
  std::vector<double> best;
  std::vector<double> deviations;
  double sumOfSquaredErrors = 0;
  std::vector<ReportPicture> pictures;
};

/// What the search of `problem` came to, with the `conditions` of its experiments, one record for
/// each; without pictures.
ReportContent ReportOf(const FitProblem& problem, const CultivationConditions& conditions,
                       const SearchResult& result, const Deviations& deviations,
                       const TextStyle& style);

/// The report's lines, tables and pictures in their order. The pictures come last, so that the
/// numbers stand together.
rich::Document ReportDocument(const ReportContent& content);

/// The report as an RTF file's bytes: 7-bit, lines ended by CR LF, every letter escaped.
std::string Relatorio(const ReportContent& content);

/// Writes the report to `path`; what was there is replaced only by the whole new file.
std::optional<FileFault> SaveReport(const ReportContent& content, const std::string& path);

}  // namespace velmora
