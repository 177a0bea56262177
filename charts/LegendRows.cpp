#include "charts/LegendRows.h"

namespace velmora {

std::vector<LegendRow> LegendRows(const ExperimentLists& lists) {
  std::vector<LegendRow> rows;
  for (int place = 1; place <= lists.Count(); ++place) {
    const DisplayEntry& display = lists.Display(place);
    if (display.NGrafVisivel)
      rows.push_back({lists.Experiment(place).NExp, display.NMarcador, display.NCor});
  }
  return rows;
}

}  // namespace velmora
