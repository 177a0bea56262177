// The Levenberg-Marquardt method from many starts, with hops between basins.
#pragma once

#include <cstdint>

#include "estimation/SearchResult.h"

namespace velmora {

struct MarquardtSettings {
  std::int32_t IU = 5471;       // seed
  std::int32_t limit = 60'000;  // evaluations of all experiments
  unsigned threads = 1;         // of which the result does not depend
};

/// Minimises the problem's score inside the bounds, from many starts:
///
/// 1. The user's start and the best of a Latin hypercube of 200 places, on a logarithmic scale,
///    descend: 20 of them some steps, the best of these on, the last four to their ends.
/// 2. Rounds of hops from the best place, and from others that come close, to places along the
///    valley, across it, or anywhere; each hop ends in a descent.
/// 3. Where the score has a kink or a jump (a limit is reached inside an integration step), each
///    round ends with searches without derivatives.
///
/// It ends where rounds bring nothing more, at the limit of evaluations, or where the observer
/// stops it, which is asked for every few evaluations. The observer hears of every start and every
/// round. A candidate with an arithmetic fault counts as infinitely bad. The same problem and
/// settings give the same result.
///
/// `generations` of the result counts the starts and rounds; `starts` and `agreeing` tell how many
/// descents came near and how many of them to the best place.
SearchResult SearchMarquardt(const FitProblem& problem, MarquardtSettings settings,
                             SearchObserver& observer);

}  // namespace velmora
