// How each experiment is drawn so that every reader tells it from the others.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "charts/ChartCanvas.h"
#include "charts/ChartContent.h"

namespace velmora {

/// Inks that show on white (contrast 3 or more), that readers with any kind of colour blindness
/// tell apart, and that differ in lightness where they are printed in grey. The first six stand for
/// the colour numbers, each near to its hue.
inline constexpr std::array<Ink, 9> kPublishedInks = {{{0x25, 0x37, 0xD7},
                                                       {0xCB, 0x3E, 0x4C},
                                                       {0x26, 0xA8, 0x7C},
                                                       {0x95, 0x4E, 0x03},
                                                       {0xDA, 0x3B, 0xD1},
                                                       {0x00, 0x00, 0x00},
                                                       {0x04, 0x47, 0x4D},
                                                       {0x31, 0x1E, 0x00},
                                                       {0x3B, 0x15, 0x7E}}};

struct Appearance {
  Ink ink;
  Ink curveInk;
  std::string marker;
  LineKind line = LineKind::Solid;
};

/// As the plots draw them: points in the chosen colour, where it is none in that of the experiment
/// before; curves in black.
std::vector<Appearance> StatedAppearances(std::span<const PlottedExperiment> experiments);

/// Curves in the ink of their points. Of nine visible experiments no two share an ink, no two have
/// both marker and line in common, and no two have one kind of line in inks that are hard to tell
/// apart in grey: where the user's choices lead to that, the later experiment takes the next ink
/// and the next kind of line that are free.
std::vector<Appearance> PublishedAppearances(std::span<const PlottedExperiment> experiments);

/// As `LegendRows`; with the inks for publication where the charts are `published`.
std::vector<LegendRow> LegendRows(const ExperimentLists& lists, bool published);

}  // namespace velmora
