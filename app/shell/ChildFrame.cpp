#include "app/shell/ChildFrame.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace velmora {
namespace {

/// A scroll area would keep the height that a wrapped text makes desirable; the windows do with
/// less.
class BoxOfAnyHeight : public QVBoxLayout {
 public:
  using QVBoxLayout::QVBoxLayout;
  bool hasHeightForWidth() const override { return false; }
};

}  // namespace

// Taken into another widget, a window forgets which of its controls has the keyboard.
ChildFrame::ChildFrame(QWidget* window) : window_(*window), lastControl_(window->focusWidget()) {
  setObjectName(window->objectName() + QStringLiteral("Frame"));
  auto* const holder = new QWidget;
  auto* const box = new BoxOfAnyHeight(holder);
  box->setContentsMargins({});
  box->addWidget(window);
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidgetResizable(true);
  scroll->setWidget(holder);
  setWidget(scroll);
  setWindowTitle(window->windowTitle());
  connect(window, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
}

void ChildFrame::BringUp() {
  setFocusPolicy(Qt::StrongFocus);
  showMaximized();
  TakeKeyboard();
}

void ChildFrame::PutAway() {
  // Hiding a control passes the keyboard on, so that it is asked for beforehand.
  if (!isMinimized()) lastControl_ = window_.focusWidget();
  // A window put away would become the active one where the keyboard looks for a new place.
  setFocusPolicy(Qt::NoFocus);
  showMinimized();
}

void ChildFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  PutAway();
}

bool ChildFrame::CanTakeKeys(const QWidget& control) const {
  return window_.isAncestorOf(&control) && control.isEnabledTo(&window_) &&
         control.isVisibleTo(&window_) && (control.focusPolicy() & Qt::TabFocus) != 0;
}

// Left to itself, the area may choose a control that is hidden, and the keys reach the other
// window.
void ChildFrame::TakeKeyboard() {
  if (window_.focusWidget() != nullptr && window_.focusWidget()->hasFocus()) return;
  QWidget* control = lastControl_ ? lastControl_.data() : window_.focusWidget();
  if (control == nullptr || !CanTakeKeys(*control)) control = window_.nextInFocusChain();
  while (control != &window_ && !CanTakeKeys(*control)) control = control->nextInFocusChain();
  control->setFocus();
}

}  // namespace velmora
