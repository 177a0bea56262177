#include "app/experiments/PlotsPanel.h"

#include <QVBoxLayout>

namespace velmora {
namespace {

ChartView* NamedView(const char* name, QWidget* parent) {
  auto* const view = new ChartView(parent);
  view->setObjectName(QLatin1StringView(name));
  view->setFocusPolicy(Qt::TabFocus);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  return view;
}

}  // namespace

PlotsPanel::PlotsPanel(QWidget* parent)
    : QWidget(parent),
      plots_{{{PlotVariable::Cs, NamedView("picCs", this)},
              {PlotVariable::Cx, NamedView("picCx", this)},
              {PlotVariable::Cp, NamedView("picCp", this)}}} {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  for (const Plot& plot : plots_) {
    ChartView* const view = plot.view;
    view->setAccessibleName(QString::fromStdString(PlotTitle(plot.variable)));
    layout->addWidget(view, 1);
    connect(view, &ChartView::Activated, this, &PlotsPanel::Activated);
    connect(view, &ChartView::MenuRequested, this,
            [this, view](const QPoint& at) { emit MenuRequested(view->objectName(), at); });
  }
}

void PlotsPanel::SetContent(const ExperimentLists& lists, const ModelCurves* curves, bool gridLines,
                            char separator) {
  for (const Plot& plot : plots_)
    plot.view->SetContent(ContentOf(plot.variable, lists, curves, gridLines, separator));
}

}  // namespace velmora
