// The three plots of the cultivation window with their legend.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <array>

#include "app/charts/ChartView.h"
#include "data/ExperimentLists.h"
#include "kinetics/ModelCurves.h"

namespace velmora {

class LegendView;

class ChartsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChartsPanel(QWidget* parent = nullptr);

  /// Draws the experiments, and the model's curves where they are not null.
  void Draw(const ExperimentLists& lists, const ModelCurves* curves, bool gridLines,
            char separator);
  /// Shows the legend, or hides it.
  void ToggleLegend();
  void SetLegendHeading(const QString& text);

 signals:
  /// A plot was clicked.
  void Activated();
  /// The menu of the plot with this name was asked for.
  void MenuAsked(const QString& chart, const QPoint& globalPosition);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Build();
  void LayOut();
  void Wire();
  void PlaceLegend();

  std::array<ChartView*, 3> charts_{};  // Cx, Cs, Cp
  LegendView* legend_ = nullptr;
};

}  // namespace velmora
