#include "charts/Appearance.h"

#include <algorithm>
#include <set>
#include <utility>

#include "charts/MarkerFigures.h"
#include "data/Experiment.h"

namespace velmora {
namespace {

constexpr std::size_t kSpareInk = kColours.size();  // the first that stands for no colour number

constexpr LineKind kLines[] = {LineKind::Solid, LineKind::Dashed, LineKind::Dotted,
                               LineKind::DashDotted, LineKind::DashDotDotted};

bool HasColour(std::int32_t number) {
  return number >= 1 && number <= static_cast<std::int32_t>(kColours.size());
}

/// Hands out what is not taken yet.
class Choices {
 public:
  /// The ink of the colour where it is free, else the next free one, spare ones first.
  std::size_t InkFor(std::int32_t colour) {
    const std::size_t wanted = HasColour(colour) ? static_cast<std::size_t>(colour) - 1 : kSpareInk;
    if (inks_.insert(wanted).second) return wanted;
    for (std::size_t i = 0; i < kPublishedInks.size(); ++i)
      if (const std::size_t next = (kSpareInk + i) % kPublishedInks.size();
          inks_.insert(next).second)
        return next;
    return wanted;
  }

  LineKind LineFor(const std::string& marker, LineKind wanted) {
    if (lines_.insert({marker, wanted}).second) return wanted;
    for (const LineKind line : kLines)
      if (lines_.insert({marker, line}).second) return line;
    return wanted;
  }

 private:
  std::set<std::size_t> inks_;
  std::set<std::pair<std::string, LineKind>> lines_;
};

}  // namespace

std::vector<Appearance> StatedAppearances(std::span<const PlottedExperiment> experiments) {
  std::vector<Appearance> appearances;
  Ink ink;
  for (const PlottedExperiment& experiment : experiments) {
    if (experiment.visible && HasColour(experiment.colour)) ink = InkOf(experiment.colour);
    appearances.push_back({ink, {}, experiment.marker, LineKindOf(experiment.line)});
  }
  return appearances;
}

std::vector<Appearance> PublishedAppearances(std::span<const PlottedExperiment> experiments) {
  std::vector<Appearance> appearances;
  Choices choices;
  for (const PlottedExperiment& experiment : experiments) {
    appearances.push_back({{}, {}, experiment.marker, LineKindOf(experiment.line)});
    if (!experiment.visible) continue;
    Appearance& appearance = appearances.back();
    appearance.ink = kPublishedInks[choices.InkFor(experiment.colour)];
    appearance.curveInk = appearance.ink;
    appearance.line = choices.LineFor(appearance.marker, appearance.line);
  }
  return appearances;
}

std::vector<LegendRow> LegendRows(const ExperimentLists& lists, bool published) {
  std::vector<LegendRow> rows = LegendRows(lists);
  if (!published) return rows;
  Choices choices;
  for (LegendRow& row : rows) row.ink = kPublishedInks[choices.InkFor(row.colour)];
  return rows;
}

}  // namespace velmora
