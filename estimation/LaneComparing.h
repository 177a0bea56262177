// Squared errors over vectors of one width. To be included only where one instruction set is
// compiled.
#pragma once

#include "estimation/LaneResiduals.h"
#include "kinetics/Lanes.h"

namespace velmora {
namespace {

template <class Number>
[[gnu::always_inline]] inline Divisor<Number> InLanes(const KnownDivisor& divisor) {
  return {divisor.value, divisor.reciprocal, divisor.rest};
}

/// The straight line between two model points, as for a single curve.
template <class Number>
[[gnu::always_inline]] inline Number ValueAt(const double* upper, std::size_t lanes,
                                             const ComparedPoint& point) {
  const Number after = Number::From(upper), before = Number::From(upper - 3 * lanes);
  return point.since * (after - before) / InLanes<Number>(point.width) + before;
}

template <class Number>
void CompareLanes(const double* curves, std::size_t lanes, const ComparedPoints& measured,
                  double* sums, double* residuals) {
  Number sum = Number::From(sums);
  const auto difference = [&](const double* at, const ComparedPoint& point, double value,
                              const KnownDivisor& scale) __attribute__((always_inline)) {
    return value - ValueAt<Number>(at, lanes, point) / InLanes<Number>(scale);
  };
  for (std::size_t k = 0; k < measured.count; ++k) {
    const ComparedPoint& point = measured.points[k];
    const double* at = curves + point.upper * 3 * lanes;
    const Number Cx = difference(at, point, point.measured.Cx, measured.scale.Cx);
    const Number Cs = difference(at + lanes, point, point.measured.Cs, measured.scale.Cs);
    const Number Cp = difference(at + 2 * lanes, point, point.measured.Cp, measured.scale.Cp);
    sum = sum + (Cx * Cx + Cs * Cs + Cp * Cp);
    if (residuals == nullptr) continue;
    Cx.To(residuals);
    Cs.To(residuals + Number::kLanes);
    Cp.To(residuals + 2 * Number::kLanes);
    residuals += 3 * Number::kLanes;
  }
  sum.To(sums);
}

}  // namespace
}  // namespace velmora
