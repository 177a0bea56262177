#include "app/cultivation/ChartsPanel.h"

#include <limits>

#include "app/charts/ChartView.h"
#include "app/charts/LegendView.h"
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

/// Over the plot of which it hides least, the uppermost one first.
void ChartsPanel::PlaceLegend() {
  legend_->adjustSize();
  int least = std::numeric_limits<int>::max();
  for (const ChartView* const view : Views()) {
    const QRect corner = view->FreestCorner(legend_->size());
    const int hidden = view->HiddenBy(corner);
    if (hidden >= least) continue;
    least = hidden;
    legend_->move(view->mapToParent(corner.topLeft()));
  }
  legend_->raise();
}

}  // namespace velmora
