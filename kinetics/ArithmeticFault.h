// An arithmetic fault of the kinetics: what happened and where.
#pragma once

#include <cstdint>

namespace velmora {

enum class FaultKind : std::uint8_t {
  DivisionByZero,
  Overflow,      // a result that no double holds
  InvalidPower,  // zero to a negative exponent, or a negative base to a fractional one
};

/// The term of the calculation in which a fault arose.
enum class FaultTerm : std::uint8_t {
  SubstratePower,       // Cs^u
  CellPower,            // (Cx + B1)^B
  SubstrateInhibition,  // (Cs / Kis)^v
  SubstrateQuotient,    // µmax Cs^u / (...)
  Levenspiel,
  Lee,
  Aiba,
  Hoppe,
  CellBalance,
  SubstrateBalance,
  ProductBalance,
  State,              // Cx, Cs or Cp of a stage or a step
  EvaluationCounter,  // more rate evaluations than a 32-bit counter holds
  Interpolation,      // between model points at a measured time
  Score,              // the sum of squared errors
  Deviations,         // normal matrix, its inverse, or the deviations from it
};

/// Thrown by the integrator and what calls it, as one type. The fields that do not apply are 0.
struct ArithmeticFault {
  FaultKind kind = FaultKind::Overflow;
  FaultTerm term = FaultTerm::State;
  int place = 0;  // place of the experiment in the experiment list
  int point = 0;  // the model point 1..100 that could not be computed (1: the initial values)
  int stage = 0;  // the stage 1..4 of the step to that point

  friend bool operator==(const ArithmeticFault&, const ArithmeticFault&) = default;
};

}  // namespace velmora
