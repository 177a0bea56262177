// The differential-evolution search for the fitted parameters.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "estimation/EstimationSettings.h"
#include "estimation/Objective.h"

namespace velmora {

/// Where a search stands after a generation. The span holds until the observer returns.
struct Generation {
  int number;                    // from 1
  std::span<const double> best;  // in the order of the fitted parameters
  double score;                  // of the best vector
  std::int32_t functionCalls;
  int observations;  // measured values
};

/// Hears of every generation, and may end the search between two of them.
class SearchObserver {
 public:
  virtual ~SearchObserver() = default;
  /// Asked at the start of each generation; true ends the search before it.
  virtual bool StopRequested() { return false; }
  virtual void Report(const Generation&) {}
};

enum class SearchEnd : std::uint8_t {
  Converged,        // a generation moved the best score by less than EPS
  GenerationLimit,  // ITER generations
  Stopped,          // by the observer
  Refused,          // a lower bound is not below its upper one; nothing was searched
  Fault,            // an arithmetic fault in a simulation
};

/// What a search came to. After a fault it holds the best vector found before it, if any.
struct SearchResult {
  SearchEnd end = SearchEnd::Refused;
  std::optional<ArithmeticFault> fault;
  std::vector<double> best;  // empty where there is no result
  double score = 0;          // the sum of squared errors of `best`
  int bestGeneration = 0;    // in which it was found; 0: the initial population
  double startScore = 0;     // of the start values; 0 where these met the fault
  std::int32_t functionCalls = 0;
  int generations = 0;  // that ended

  bool HasResult() const { return !best.empty(); }
};

/// Whether every lower bound is finite and below its finite upper bound.
bool BoundsAreOrdered(std::span<const FitVariable> variables);

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
