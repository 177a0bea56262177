// Which marker and colour belong to which experiment.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/ExperimentLists.h"

namespace velmora {

struct LegendRow {
  std::int16_t number = 0;
  std::string marker;
  std::int32_t colour = 1;
};

/// One row for each visible experiment, in list order.
std::vector<LegendRow> LegendRows(const ExperimentLists& lists);

}  // namespace velmora
