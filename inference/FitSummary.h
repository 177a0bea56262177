// A fit in a few lines: how it ended, how many starts agree, how much of the data it explains.
#pragma once

#include <string>
#include <vector>

#include "estimation/ResultTexts.h"
#include "estimation/SearchResult.h"

namespace velmora {

/// Why the search ended. `limit`: the generations that differential evolution makes at most.
std::string EndReason(const SearchResult& result, int limit, Language language);

/// `EndReason`, the starts that agree, and R² of each variable that varies, a line each, of a
/// search with a result.
std::vector<std::string> SummaryLines(const FitProblem& problem, const SearchResult& result,
                                      int limit, TextStyle style);

}  // namespace velmora
