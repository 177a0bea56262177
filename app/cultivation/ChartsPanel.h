// The three plots of the cultivation window with their legend.
#pragma once

#include "app/charts/PlotsPanel.h"

namespace velmora {

class LegendView;

class ChartsPanel : public PlotsPanel {
  Q_OBJECT

 public:
  explicit ChartsPanel(QWidget* parent = nullptr);

  /// Draws the experiments and their curves.
  void Draw(const ExperimentLists& lists, const ModelCurves& curves, const ChartLook& look);
  /// Shows the legend, or hides it.
  void ToggleLegend();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceLegend();

  LegendView* legend_;
};

}  // namespace velmora
