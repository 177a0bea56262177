// What a search tells while it runs, and what it comes to.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

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

/// Hears of every generation, and may end the search between two of them, or inside one.
class SearchObserver {
 public:
  virtual ~SearchObserver() = default;
  /// Asked at the start of each generation; true ends the search before it.
  virtual bool StopRequested() { return false; }
  /// Asked again and again while a population is scored; true leaves it as it is. Of a generation
  /// that was left nothing counts: the result is that of the generation before.
  virtual bool StopsAtOnce() { return false; }
  virtual void Report(const Generation&) {}
};

enum class SearchEnd : std::uint8_t {
  Converged,        // a generation moved the best score by less than EPS
  GenerationLimit,  // ITER generations
  EvaluationLimit,  // as many simulations as the method makes at most
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
  double startScore = 0;     // of the start values; 0 where these met the fault that ended it
  std::int32_t functionCalls = 0;
  std::int64_t simulations = 0;  // of trials, those among them that were made and not used
  int generations = 0;           // that ended, or starts and rounds
  int starts = 0;                // descents that ended, where the method makes any
  int agreeing = 0;              // those of them that ended within 1 % of the best score

  bool HasResult() const { return !best.empty(); }
};

}  // namespace velmora
