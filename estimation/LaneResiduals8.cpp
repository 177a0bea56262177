#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResidualsOfWidth kLaneResiduals8;
constinit const LaneResidualsOfWidth kLaneResiduals8{&CompareLanes<Lanes<8, 1>>,
                                                     &CompareLanes<Lanes<8, 3>>};

}  // namespace velmora
