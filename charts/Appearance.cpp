#include "charts/Appearance.h"

#include <algorithm>
#include <cmath>
#include <set>

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

/// The relative luminance, 0 to 1 (Web Content Accessibility Guidelines 2.1).
double Luminance(const Ink& ink) {
  const auto linear = [](std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(ink.red) + 0.7152 * linear(ink.green) + 0.0722 * linear(ink.blue);
}

/// Whether thin lines in both inks are told apart where they are printed in grey.
bool ApartInGrey(const Ink& a, const Ink& b) {
  constexpr double kContrast = 1.5, kGlare = 0.05;
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + kGlare) / (darker + kGlare) >= kContrast;
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

  /// The line wanted where it is free, else the next one that is; else one that the marker does not
  /// have yet.
  LineKind LineFor(const std::string& marker, const Ink& ink, LineKind wanted) {
    std::vector<LineKind> kinds = {wanted};
    kinds.insert(kinds.end(), std::begin(kLines), std::end(kLines));
    for (const bool inGrey : {true, false})
      for (const LineKind line : kinds)
        if (IsFree({marker, ink, line}, inGrey)) {
          lines_.push_back({marker, ink, line});
          return line;
        }
    return wanted;
  }

 private:
  struct Drawn {
    std::string marker;
    Ink ink;
    LineKind line;
  };

  bool IsFree(const Drawn& drawn, bool inGrey) const {
    return std::none_of(lines_.begin(), lines_.end(), [&](const Drawn& other) {
      return drawn.line == other.line &&
             (drawn.marker == other.marker || (inGrey && !ApartInGrey(drawn.ink, other.ink)));
    });
  }

  std::set<std::size_t> inks_;
  std::vector<Drawn> lines_;
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
    appearance.line = choices.LineFor(appearance.marker, appearance.ink, appearance.line);
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
