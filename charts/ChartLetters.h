// The letters of a chart: how high they are, and how a text is broken into lines of them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "charts/ChartCanvas.h"
#include "charts/ChartDrawing.h"

namespace velmora {

/// `text` in at most `most` lines that have `room`, broken at blanks; what does not fit ends in
/// "…".
std::vector<std::string> Wrapped(const std::string& text, double room, std::size_t most,
                                 const ChartCanvas& canvas);

/// Of labels: what the style states, or what suits the paper.
double LetterHeight(const PaperArea& paper, const ChartStyle& style);

}  // namespace velmora
