#include "estimation/LaneResiduals.h"

#include <cmath>

namespace velmora {

KnownDivisor::KnownDivisor(double divisor)
    : value(divisor),
      reciprocal(1 / divisor),
      rest(std::fma(-divisor, reciprocal, 1) * reciprocal) {}

extern const LaneResiduals kLaneResiduals2;
#ifdef VELMORA_WIDE_LANES
extern const LaneResiduals kLaneResiduals4;
extern const LaneResiduals kLaneResiduals8;
#endif

LaneResiduals LaneResidualsFor([[maybe_unused]] std::size_t width) {
#ifdef VELMORA_WIDE_LANES
  if (width == 8) return kLaneResiduals8;
  if (width == 4) return kLaneResiduals4;
#endif
  return kLaneResiduals2;
}

}  // namespace velmora
