#include "estimation/LaneComparing.h"

namespace velmora {

extern const LaneResidualsOfWidth kLaneResiduals4;
constinit const LaneResidualsOfWidth kLaneResiduals4{&CompareLanes<Lanes<4, 1>>,
                                                     &CompareLanes<Lanes<4, 4>>};

}  // namespace velmora
