// The window of one enlarged chart.
#pragma once

#include <QDialog>
#include <memory>

#include "app/charts/ChartExport.h"
#include "app/charts/ChartView.h"
#include "app/widgets/Dialogs.h"
#include "charts/ZoomedChart.h"
#include "session/Session.h"

class QLabel;

namespace velmora {

class LegendView;
class ZoomButtons;
enum class ZoomAction : std::uint8_t;

/// Shows one chart of what the session holds. Title, legend, grid lines and what part of it is
/// looked at, and how, are the window's own.
class frmZoom : public QDialog {
  Q_OBJECT

 public:
  frmZoom(const Session& session, Dialogs& dialogs, PlotVariable variable,
          QWidget* parent = nullptr,
          std::unique_ptr<PrintDesk> printers = std::make_unique<PrintDesk>());
  ~frmZoom() override;

  /// Whether there is a chart to show.
  bool Sized() const;
  /// Shows what the session now holds; what it showed before where that has nothing to show.
  void ShowSession();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildPanels();
  void BuildLegend();
  QWidget* CoordinateRow();
  void LayOut();
  void Wire();
  void ShowChart();

  void Do(ZoomAction action);
  void ToggleTitle();
  void TogglePublication();
  void ToggleResiduals();
  void Toggle(bool ZoomedChart::*choice);
  void AskInterval();
  void CopyChart();

  void PlotaExpIntervalos(const TimeInterval& interval, const TypedInterval& bounds);
  void ShowWhole();
  void ShowPart(const ShownPart& part);
  void Wheel(const PlotPoint& point, double factor);
  void Redraw();
  void ShowLegend();
  void ShowPoint(const PlotPoint& point);
  /// Keeps the legend at its share of the chart, inside it.
  void MoveLegend(const QSize& from, const QSize& to);
  ChartPage Page() const;

  const Session& session_;
  Dialogs& dialogs_;
  ChartExport output_;
  ZoomedChart chart_;
  bool legendPlaced_ = false;

  ZoomButtons* buttons_ = nullptr;
  ChartView* picZoom_ = nullptr;
  LegendView* picLegenda_ = nullptr;
  QLabel* picHidden_ = nullptr;  // what was copied last
  QLabel* lblTempo_ = nullptr;
  QLabel* lblX_ = nullptr;
  QLabel* lblVariavel_ = nullptr;
  QLabel* lblY_ = nullptr;
};

/// Opens the chart that was clicked (session.clickedChart) enlarged, in a window over `owner` that
/// lives until it is closed. Where it cannot be sized, says so and opens nothing.
void GraficoZoomSub(const Session& session, Dialogs& dialogs, QWidget* owner);

}  // namespace velmora
