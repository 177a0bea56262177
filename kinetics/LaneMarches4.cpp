#include "kinetics/LaneMarching.h"

namespace velmora {

extern const LaneMarches kLaneMarches4;
constinit const LaneMarches kLaneMarches4 = MarchesOf<4, 4>();

}  // namespace velmora
