#include "kinetics/LaneMarches.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace velmora {

extern const LaneMarches kLaneMarches2;
#ifdef VELMORA_WIDE_LANES
extern const LaneMarches kLaneMarches4;
extern const LaneMarches kLaneMarches8;
#endif

namespace {

/// The widest vectors that are wanted; the environment may ask for narrow ones, to compare them.
std::size_t WantedWidth() {
  const char* wanted = std::getenv("VELMORA_LANES");
  if (wanted == nullptr) return 8;
  for (const std::size_t width : {1U, 2U, 4U})
    if (std::string_view(wanted) == std::to_string(width)) return width;
  return 8;
}

const LaneMarches* Widest(std::size_t width) {
#ifdef VELMORA_WIDE_LANES
  const bool fuses = __builtin_cpu_supports("fma");
  if (width >= 8 && fuses && __builtin_cpu_supports("avx512f") &&
      __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl"))
    return &kLaneMarches8;
  if (width >= 4 && fuses && __builtin_cpu_supports("avx2")) return &kLaneMarches4;
#endif
  return width >= 2 ? &kLaneMarches2 : nullptr;
}

}  // namespace

const LaneMarches* LaneMarchesHere() {
  static const LaneMarches* const kHere = Widest(WantedWidth());
  return kHere;
}

}  // namespace velmora
