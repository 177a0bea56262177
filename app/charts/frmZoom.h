// The window of one enlarged chart.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "app/charts/ChartExport.h"
#include "app/widgets/Dialogs.h"
#include "charts/AxisScaling.h"
#include "session/Session.h"

class QLabel;

namespace velmora {

class ChartView;
class LegendView;
class ZoomButtons;
enum class ZoomAction : std::uint8_t;

/// Shows the chart of what the session held when the window was opened. Title, legend, grid lines
/// and range of time are the window's own.
class frmZoom : public QDialog {
  Q_OBJECT

 public:
  frmZoom(const Session& session, Dialogs& dialogs, PlotVariable variable,
          QWidget* parent = nullptr,
          std::unique_ptr<PrintDesk> printers = std::make_unique<PrintDesk>());
  ~frmZoom() override;

  /// Whether there is a chart to show.
  bool Sized() const;
  /// Takes away the curves of experiments that are not in `lists` as they were when the window was
  /// opened.
  void WithdrawCurves(const ExperimentLists& lists);

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
  void ToggleLegend();
  void ToggleGridLines();
  void AskInterval();
  void CopyChart();

  void PlotaExpIntervalos(const TimeInterval& interval);
  void Redraw();
  void ShowPoint(const PlotPoint& point);
  /// Keeps the legend at its share of the chart, inside it.
  void MoveLegend(const QSize& from, const QSize& to);
  ChartPage Page() const;

  const Session& session_;
  Dialogs& dialogs_;
  ChartExport output_;
  PlotVariable variable_;
  ExperimentLists lists_;
  ModelCurves curves_;
  bool gridLines_;
  bool legendPlaced_ = false;
  std::optional<TimeInterval> interval_;
  std::string title_;  // UTF-8

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
