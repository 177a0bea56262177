#include "data/Experiment.h"

#include <algorithm>

namespace velmora {

int MarkerNumber(std::string_view name) {
  const auto at = std::find(kMarkers.begin(), kMarkers.end(), name);
  return at == kMarkers.end() ? 0 : static_cast<int>(at - kMarkers.begin()) + 1;
}

}  // namespace velmora
