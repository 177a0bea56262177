#include "kinetics/LaneMarching.h"

namespace velmora {

extern const LaneMarches kLaneMarches8;
constinit const LaneMarches kLaneMarches8 = MarchesOf<8, 4>();

}  // namespace velmora
