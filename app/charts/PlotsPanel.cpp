#include "app/charts/PlotsPanel.h"

#include <QVBoxLayout>

#include "app/charts/ChartView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {

PlotsPanel::PlotsPanel(const std::array<PlotName, 3>& order, QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  Tighten(*layout);
  for (std::size_t i = 0; i < plots_.size(); ++i) {
    auto* const view = Named<ChartView>(order[i].name, this);
    view->setAccessibleName(QString::fromStdString(PlotTitle(order[i].variable)));
    view->setFocusPolicy(Qt::TabFocus);
    layout->addWidget(view, 1);
    connect(view, &ChartView::Activated, this, &PlotsPanel::Activated);
    connect(view, &ChartView::MenuRequested, this,
            [this, view](const QPoint& at) { emit MenuAsked(view->objectName(), at); });
    connect(view, &ChartView::EnlargementAsked, this,
            [this, view] { emit EnlargementAsked(view->objectName()); });
    plots_[i] = {order[i].variable, view};
  }
}

void PlotsPanel::SetContent(const ExperimentLists& lists, const ModelCurves& curves,
                            const ChartLook& look) {
  for (const Plot& plot : plots_) {
    plot.view->SetContent(ContentOf(plot.variable, lists, curves, look));
    plot.view->setToolTip(lists.Empty() ? QString() : Caption(TextId::ZoomHint, look.language));
  }
}

ChartLook LookOf(const Session& session) {
  return {session.language, session.separator, session.gridLines, session.forPublication};
}

}  // namespace velmora
