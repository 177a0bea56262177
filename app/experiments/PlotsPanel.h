// The three plots of the experiments window.
#pragma once

#include <QWidget>
#include <array>

#include "app/charts/ChartView.h"
#include "charts/ChartContent.h"

namespace velmora {

/// The plots picCs, picCx and picCp, one above the other: their time axes run alike.
class PlotsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PlotsPanel(QWidget* parent = nullptr);

  /// As `ContentOf`, for all three plots.
  void SetContent(const ExperimentLists& lists, const ModelCurves* curves, bool gridLines,
                  char separator);

 signals:
  /// A plot was clicked.
  void Activated();
  void MenuRequested(const QString& chart, const QPoint& globalPosition);

 private:
  struct Plot {
    PlotVariable variable;
    ChartView* view;
  };
  std::array<Plot, 3> plots_;
};

}  // namespace velmora
