#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResidualsOfWidth kLaneResiduals2;
constinit const LaneResidualsOfWidth kLaneResiduals2{&CompareLanes<Lanes<2, 1>>,
                                                     &CompareLanes<Lanes<2, 3>>};

}  // namespace velmora
