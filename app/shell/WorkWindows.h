// The area of the frame with the two work windows.
#pragma once

#include <QMdiArea>

#include "app/widgets/Dialogs.h"
#include "session/Session.h"

namespace velmora {

class ChildFrame;
class frmCultBatelada;
class frmMsFlexGrid;

/// The experiments window and the cultivation window, one maximised and the other minimised. Both
/// live until they are loaded anew.
class WorkWindows : public QMdiArea {
  Q_OBJECT

 public:
  WorkWindows(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  frmMsFlexGrid& Experiments() const { return *experiments_; }
  frmCultBatelada& Cultivation() const { return *cultivation_; }
  /// The window that is in front.
  QWidget& Active() const;
  bool CultivationActive() const;

  /// Loads both windows, in place of those that are there, with the experiments in front.
  void Load();
  void ShowExperiments();
  void ShowCultivation();
  /// Brings the active window to the front again.
  void ShowActive();

 private:
  ChildFrame* Frame(QWidget* child);
  void Unload();
  void Bring(ChildFrame* front, ChildFrame* back);

  Session& session_;
  Dialogs& dialogs_;
  frmMsFlexGrid* experiments_ = nullptr;
  frmCultBatelada* cultivation_ = nullptr;
  ChildFrame* experimentsFrame_ = nullptr;
  ChildFrame* cultivationFrame_ = nullptr;
};

}  // namespace velmora
