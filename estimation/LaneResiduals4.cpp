#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResiduals kLaneResiduals4;
constinit const LaneResiduals kLaneResiduals4 = &CompareLanes<Lanes<4, 1>>;

}  // namespace velmora
