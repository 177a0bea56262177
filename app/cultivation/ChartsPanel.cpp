#include "app/cultivation/ChartsPanel.h"

#include "app/charts/LegendView.h"
#include "app/widgets/PanelParts.h"
#include "app/widgets/ProgramFolder.h"

namespace velmora {

ChartsPanel::ChartsPanel(QWidget* parent)
    : PlotsPanel({kPicCx, kPicCs, kPicCp}, parent), legend_(new LegendView(ProgramFolder(), this)) {
  legend_->hide();
}

void ChartsPanel::Draw(const ExperimentLists& lists, const ModelCurves& curves,
                       const ChartLook& look) {
  SetContent(lists, curves, look);
  legend_->SetRows(LegendRows(lists, look.published));
}

void ChartsPanel::ToggleLegend() {
  legend_->setVisible(legend_->isHidden());
  PlaceLegend();
}

void ChartsPanel::resizeEvent(QResizeEvent* event) {
  PlotsPanel::resizeEvent(event);
  PlaceLegend();
}

void ChartsPanel::PlaceLegend() {
  legend_->adjustSize();
  legend_->move(width() - legend_->width() - kSpacing, kSpacing);
  legend_->raise();
}

}  // namespace velmora
