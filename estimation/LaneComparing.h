// Squared errors over vectors of one width. To be included only where one instruction set is
// compiled.
#pragma once

#include "estimation/LaneResiduals.h"
#include "kinetics/Lanes.h"

namespace velmora {
namespace {

/// The straight line between two model points, as for a single curve.
template <class Number>
[[gnu::always_inline]] inline Number ValueAt(const double* upper, const ComparedPoint& point) {
  const Number after = Number::From(upper), before = Number::From(upper - 3 * Number::kLanes);
  return point.since * (after - before) / point.width + before;
}

template <class Number>
void CompareLanes(const double* curves, const ComparedPoints& measured, double* sums,
                  double* residuals) {
  Number sum = Number::From(sums);
  for (std::size_t k = 0; k < measured.count; ++k) {
    const ComparedPoint& point = measured.points[k];
    const double* at = curves + point.upper * 3 * Number::kLanes;
    const Number Cx = point.measured.Cx - ValueAt<Number>(at, point) / measured.scale.Cx;
    const Number Cs =
        point.measured.Cs - ValueAt<Number>(at + Number::kLanes, point) / measured.scale.Cs;
    const Number Cp =
        point.measured.Cp - ValueAt<Number>(at + 2 * Number::kLanes, point) / measured.scale.Cp;
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
