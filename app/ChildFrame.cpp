#include "app/ChildFrame.h"

#include <QCloseEvent>

namespace velmora {

ChildFrame::ChildFrame(QWidget* window) {
  setObjectName(window->objectName() + QStringLiteral("Frame"));
  setWidget(window);
}

void ChildFrame::BringUp() {
  showMaximized();
  TakeKeyboard();
}

void ChildFrame::PutAway() {
  // Hiding a control passes the keyboard on, so that it is asked for beforehand.
  if (!isMinimized()) lastControl_ = widget()->focusWidget();
  showMinimized();
}

void ChildFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  PutAway();
}

bool ChildFrame::CanTakeKeys(const QWidget& control) const {
  return widget()->isAncestorOf(&control) && control.isEnabledTo(widget()) &&
         control.isVisibleTo(widget()) && (control.focusPolicy() & Qt::TabFocus) != 0;
}

// Left to itself, the area may choose a control that is hidden, and the keys reach the other
// window.
void ChildFrame::TakeKeyboard() {
  if (widget()->focusWidget() != nullptr && widget()->focusWidget()->hasFocus()) return;
  QWidget* control = lastControl_.data();
  if (control == nullptr || !CanTakeKeys(*control)) control = widget()->nextInFocusChain();
  while (control != widget() && !CanTakeKeys(*control)) control = control->nextInFocusChain();
  control->setFocus();
}

}  // namespace velmora
