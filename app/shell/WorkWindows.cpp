#include "app/shell/WorkWindows.h"

#include <QMdiSubWindow>

#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/shell/ChildFrame.h"

namespace velmora {

WorkWindows::WorkWindows(Session& session, Dialogs& dialogs, QWidget* parent)
    : QMdiArea(parent), session_(session), dialogs_(dialogs) {
  setObjectName(QStringLiteral("mdiArea"));
  setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  connect(this, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* active) {
    if (const auto* const frame = qobject_cast<ChildFrame*>(active))
      session_.activeWindow = frame->Window().objectName().toStdString();
  });
}

void WorkWindows::Load() {
  Unload();
  experiments_ = new frmMsFlexGrid(session_, dialogs_);
  cultivation_ = new frmCultBatelada(session_, dialogs_);
  experimentsFrame_ = Frame(experiments_);
  cultivationFrame_ = Frame(cultivation_);
  connect(experiments_, &frmMsFlexGrid::Changed, cultivation_, &frmCultBatelada::Show);
  connect(experiments_, &frmMsFlexGrid::NextStep, this, &WorkWindows::ShowCultivation);
  connect(cultivation_, &frmCultBatelada::Changed, experiments_, &frmMsFlexGrid::Show);
  connect(cultivation_, &frmCultBatelada::BackToExperiments, this, &WorkWindows::ShowExperiments);
}

ChildFrame* WorkWindows::Frame(QWidget* child) {
  auto* const frame = new ChildFrame(child);
  addSubWindow(frame);
  // addSubWindow sets it; only loading anew unloads a work window.
  frame->setAttribute(Qt::WA_DeleteOnClose, false);
  return frame;
}

void WorkWindows::Unload() {
  for (ChildFrame* const frame : {experimentsFrame_, cultivationFrame_}) {
    if (frame == nullptr) continue;
    removeSubWindow(frame);
    delete frame;
  }
}

QWidget& WorkWindows::Active() const {
  if (CultivationActive()) return *cultivation_;
  return *experiments_;
}

bool WorkWindows::CultivationActive() const {
  return session_.activeWindow == kCultivationWindow;
}

void WorkWindows::Bring(ChildFrame* front, ChildFrame* back) {
  back->PutAway();
  setActiveSubWindow(front);
  front->BringUp();
}

void WorkWindows::ShowExperiments() {
  Bring(experimentsFrame_, cultivationFrame_);
}

void WorkWindows::ShowCultivation() {
  Bring(cultivationFrame_, experimentsFrame_);
}

void WorkWindows::ShowActive() {
  if (CultivationActive())
    ShowCultivation();
  else
    ShowExperiments();
}

}  // namespace velmora
