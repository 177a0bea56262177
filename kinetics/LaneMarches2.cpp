#include "kinetics/LaneMarching.h"

namespace velmora {

extern const LaneMarches kLaneMarches2;
constinit const LaneMarches kLaneMarches2 = MarchesOf<2, 3>();

}  // namespace velmora
