#include "app/shell/ChartCommands.h"

#include <QMenu>

#include "app/charts/ChartView.h"
#include "app/charts/frmZoom.h"
#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/shell/WorkWindows.h"

namespace velmora {

ChartCommands::ChartCommands(Session& session, Dialogs& dialogs, WorkWindows& windows, QMenu& menu,
                             QWidget* owner)
    : QObject(owner),
      session_(session),
      dialogs_(dialogs),
      windows_(windows),
      menu_(menu),
      owner_(owner) {}

void ChartCommands::Enlarge(const QString& chart) {
  session_.clickedChart = chart.toStdString();
  if (!session_.lists.Empty()) OpenZoom();
}

void ChartCommands::OpenZoom() {
  GraficoZoomSub(session_, dialogs_, owner_);
}

void ChartCommands::CopyChart() {
  auto* const chart =
      windows_.Active().findChild<ChartView*>(QString::fromStdString(session_.clickedChart));
  if (chart != nullptr) CopyPicture(PictureOf(*chart), DrawingOf(chart->Content(), chart->size()));
}

void ChartCommands::ToggleLegend() {
  if (windows_.CultivationActive())
    windows_.Cultivation().LegendaSub();
  else
    windows_.Experiments().LegendaSub();
}

void ChartCommands::ToggleGridLines() {
  Announce(velmora::ToggleGridLines(session_));
  if (!windows_.CultivationActive()) windows_.Experiments().GraficoSub();
}

void ChartCommands::TogglePublication() {
  Announce(velmora::TogglePublication(session_));
}

void ChartCommands::ShowMenu(const QString& chart, const QPoint& globalPosition) {
  session_.clickedChart = chart.toStdString();
  menu_.popup(globalPosition);
}

void ChartCommands::RefreshEnlarged() {
  for (frmZoom* const enlarged : owner_->findChildren<frmZoom*>()) enlarged->ShowSession();
}

void ChartCommands::Announce(const Change& change) {
  windows_.Cultivation().Show(change);
  windows_.Experiments().Show(change);
  emit Changed(change);
}

}  // namespace velmora
