// The report of a fit, as rich text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/FileFault.h"
#include "estimation/ResultTexts.h"

namespace velmora {

/// A chart for the report: a PNG file's bytes, and its size in pixels.
struct ReportPicture {
  std::string png;
  int width = 0;
  int height = 0;
};

/// What a report tells. `best` is as long as `variables`; `deviations` too, or empty where they
/// could not be computed.
struct ReportContent {
  TextStyle style;
  std::vector<ConditionsRecord> records;  // of all experiments, by place
  std::vector<FitVariable> variables;
  std::vector<double> best;
  std::vector<double> deviations;
  double sumOfSquaredErrors = 0;
  std::vector<ReportPicture> pictures;
};

/// The report as an RTF file's bytes: 7-bit, lines ended by CR LF, every letter escaped. The charts
/// stand behind the conditions, behind the fitted variables and at the end.
std::string Relatorio(const ReportContent& content);

/// Writes the report to `path`; what was there is replaced only by the whole new file.
std::optional<FileFault> SaveReport(const ReportContent& content, const std::string& path);

}  // namespace velmora
