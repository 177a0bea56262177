#include "charts/LegendRows.h"

namespace velmora {

std::vector<LegendRow> LegendRows(const ExperimentLists& lists) {
  std::vector<LegendRow> rows;
  for (int place = 1; place <= lists.Count(); ++place) {
    const DisplayEntry& display = lists.Display(place);
    if (display.visible) rows.push_back({lists.At(place).number, display.marker, display.colour});
  }
  return rows;
}

}  // namespace velmora
