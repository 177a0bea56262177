#include "estimation/LaneResiduals.h"

namespace velmora {

extern const LaneResidualsOfWidth kLaneResiduals2;
#ifdef VELMORA_WIDE_LANES
extern const LaneResidualsOfWidth kLaneResiduals4;
extern const LaneResidualsOfWidth kLaneResiduals8;
#endif

LaneResidualsOfWidth LaneResidualsFor([[maybe_unused]] std::size_t width) {
#ifdef VELMORA_WIDE_LANES
  if (width == 8) return kLaneResiduals8;
  if (width == 4) return kLaneResiduals4;
#endif
  return kLaneResiduals2;
}

}  // namespace velmora
