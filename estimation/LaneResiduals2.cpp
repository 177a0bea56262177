#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResiduals kLaneResiduals2;
constinit const LaneResiduals kLaneResiduals2 = &CompareLanes<Lanes<2, 1>>;

}  // namespace velmora
