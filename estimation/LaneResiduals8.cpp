#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResiduals kLaneResiduals8;
constinit const LaneResiduals kLaneResiduals8 = &CompareLanes<Lanes<8, 1>>;

}  // namespace velmora
