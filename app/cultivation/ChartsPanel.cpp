#include "app/cultivation/ChartsPanel.h"

#include <QVBoxLayout>

#include "app/charts/LegendView.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

struct Plot {
  PlotVariable variable;
  const char* name;
};
constexpr std::array<Plot, 3> kPlots = {
    {{PlotVariable::Cx, "picCx"}, {PlotVariable::Cs, "picCs"}, {PlotVariable::Cp, "picCp"}}};

}  // namespace

ChartsPanel::ChartsPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
}

void ChartsPanel::Build() {
  for (std::size_t i = 0; i < charts_.size(); ++i) {
    charts_[i] = new ChartView(this);
    charts_[i]->setObjectName(QLatin1StringView(kPlots[i].name));
    charts_[i]->setAccessibleName(QString::fromStdString(PlotTitle(kPlots[i].variable)));
    charts_[i]->setFocusPolicy(Qt::TabFocus);
  }
  legend_ = new LegendView(ProgramFolder(), this);
  legend_->setObjectName(QStringLiteral("picLegenda"));
  legend_->hide();
}

void ChartsPanel::LayOut() {
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  for (ChartView* const chart : charts_) all->addWidget(chart, 1);
}

void ChartsPanel::Wire() {
  for (ChartView* const chart : charts_) {
    connect(chart, &ChartView::Activated, this, &ChartsPanel::Activated);
    connect(chart, &ChartView::MenuRequested, this, [this, chart](const QPoint& position) {
      emit MenuAsked(chart->objectName(), position);
    });
  }
}

void ChartsPanel::Draw(const ExperimentLists& lists, const ModelCurves* curves, bool gridLines,
                       char separator) {
  for (std::size_t i = 0; i < charts_.size(); ++i)
    charts_[i]->SetContent(ContentOf(kPlots[i].variable, lists, curves, gridLines, separator));
  legend_->SetRows(LegendRows(lists));
}

void ChartsPanel::ToggleLegend() {
  legend_->setVisible(legend_->isHidden());
  PlaceLegend();
}

void ChartsPanel::SetLegendHeading(const QString& text) {
  legend_->SetHeading(text);
}

void ChartsPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceLegend();
}

void ChartsPanel::PlaceLegend() {
  legend_->adjustSize();
  legend_->move(width() - legend_->width() - kSpacing, kSpacing);
  legend_->raise();
}

}  // namespace velmora
