// What is done with the charts of the work windows: enlarged, copied, shown otherwise.
#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

#include "app/widgets/Dialogs.h"
#include "session/Operations.h"

class QMenu;

namespace velmora {

class WorkWindows;

class ChartCommands : public QObject {
  Q_OBJECT

 public:
  /// `owner`: over which enlarged charts stand; `menu`: that of a chart.
  ChartCommands(Session& session, Dialogs& dialogs, WorkWindows& windows, QMenu& menu,
                QWidget* owner);

  /// Enlarges the chart that was clicked last.
  void OpenZoom();
  void Enlarge(const QString& chart);
  void CopyChart();
  void ToggleLegend();
  void ToggleGridLines();
  void TogglePublication();
  void ShowMenu(const QString& chart, const QPoint& globalPosition);
  /// Has the enlarged charts show what the session holds.
  void RefreshEnlarged();

 signals:
  void Changed(const velmora::Change& change);

 private:
  void Announce(const Change& change);

  Session& session_;
  Dialogs& dialogs_;
  WorkWindows& windows_;
  QMenu& menu_;
  QWidget* owner_;
};

}  // namespace velmora
