// The differential-evolution search for the fitted parameters.
#pragma once

#include "estimation/EstimationSettings.h"
#include "estimation/SearchResult.h"

namespace velmora {

/// Minimises the problem's score inside the bounds by differential evolution (Storn and Price
/// 1997).
///
/// The generator is seeded with IU, so that the same problem and settings give the same result. For
/// each trial it draws, in this order: four members, each until it differs from the target and from
/// those before it; the mutation's form (below 0.1 the Gaussian one, which then draws its normal
/// number); the crossover's form (below 0.1 the exponential one); the crossover's own numbers. The
/// mutant is
///   x(r1) + FACT (x(r2) - x(r3)) + FACT1 (x(r3) - 0.5 x(r4) - 0.5 x(r1)),
/// in the Gaussian form
///   x(r1) + FACT (x(r2) - x(r3)) + FACT1 G (x(r1) + x(r4) - 2 x(r3)).
/// A component outside its bounds, a negative one among them, is redrawn inside when it is scored.
/// Every 50th generation, with probability 0.9, the members in the upper half of the population's
/// places are replaced by random vectors; these are scored at once.
///
/// All that the search simulates is counted in `workspace`, whose count may have begun before: the
/// evaluation that no longer fits ends the search with a fault. Settings must have passed
/// `CheckSettings`, and neither they nor the problem are read again once the search has begun;
/// throws std::bad_alloc where no memory holds NPOP members.
SearchResult Search(const FitProblem& problem, EstimationSettings settings,
                    SearchObserver& observer,
                    Objective::Workspace workspace = Objective::Workspace());

}  // namespace velmora
