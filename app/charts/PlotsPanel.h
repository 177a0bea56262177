// The three plots of a work window.
#pragma once

#include <QWidget>
#include <array>

#include "charts/PublishedChart.h"
#include "session/Session.h"

namespace velmora {

class ChartView;

/// A plot by the name of its control.
struct PlotName {
  const char* name;
  PlotVariable variable;
};
inline constexpr PlotName kPicCs = {"picCs", PlotVariable::Cs};
inline constexpr PlotName kPicCx = {"picCx", PlotVariable::Cx};
inline constexpr PlotName kPicCp = {"picCp", PlotVariable::Cp};

/// How the session wants its charts drawn.
ChartLook LookOf(const Session& session);

/// Three plots one above the other: their time axes run alike.
class PlotsPanel : public QWidget {
  Q_OBJECT

 public:
  PlotsPanel(const std::array<PlotName, 3>& order, QWidget* parent);

  /// As `ContentOf`, for all three plots.
  void SetContent(const ExperimentLists& lists, const ModelCurves& curves, const ChartLook& look);

 signals:
  /// A plot was clicked.
  void Activated();
  /// The menu of the plot with this name was asked for.
  void MenuAsked(const QString& chart, const QPoint& globalPosition);
  /// The plot with this name is wanted enlarged.
  void EnlargementAsked(const QString& chart);

 protected:
  std::array<const ChartView*, 3> Views() const {
    return {plots_[0].view, plots_[1].view, plots_[2].view};
  }

 private:
  struct Plot {
    PlotVariable variable;
    ChartView* view;
  };
  std::array<Plot, 3> plots_;
};

}  // namespace velmora
