#include "report/ComparisonReport.h"

#include "data/SafeSave.h"

namespace velmora {
namespace {

// Of the cells of `ComparisonCells`: the longest name of a model, and the verdict.
constexpr std::initializer_list<int> kWidths = {96, 14, 42, 40, 36, 32, 36, 36, 36, 32, 54};

}  // namespace

rich::Document ComparisonDocument(const Comparison& comparison,
                                  std::span<const Experiment> experiments, TextStyle style) {
  rich::Document document;
  const auto add = [&](std::string text, rich::Look look) {
    document.emplace_back(rich::Paragraph{std::move(text), look});
  };
  const auto text = [&](TextId id) { return std::string(Text(id, style.language)); };
  add(text(TextId::ComparisonTitle), rich::Look::Title);
  add(text(TextId::Version), rich::Look::Plain);
  add(text(TextId::NumberOfExperiments) + std::to_string(experiments.size()), rich::Look::Plain);
  add(ComparisonHeading(comparison, style.language), rich::Look::Heading);
  document.emplace_back(rich::Table{kWidths, ComparisonCells(comparison, style)});
  for (std::string& line : ComparisonRemarks(comparison, experiments, style))
    add(std::move(line), rich::Look::Plain);
  rich::Look look = rich::Look::Heading;
  for (std::string& line : BestModelLines(comparison, style)) {
    add(std::move(line), look);
    look = rich::Look::Indented;
  }
  return document;
}

std::optional<FileFault> SaveComparison(const Comparison& comparison,
                                        std::span<const Experiment> experiments, TextStyle style,
                                        const std::string& path) {
  return SafeSave(path, rich::Rtf(ComparisonDocument(comparison, experiments, style)));
}

}  // namespace velmora
