// The frame of a work window inside the frame window.
#pragma once

#include <QMdiSubWindow>
#include <QPointer>

namespace velmora {

/// Puts its window away instead of closing it: what the window shows lives on, and the menu brings
/// it back. Where the frame is smaller than the window can be, the window scrolls.
class ChildFrame : public QMdiSubWindow {
  Q_OBJECT

 public:
  explicit ChildFrame(QWidget* window);

  QWidget& Window() const { return window_; }

  /// Shows the window maximised and gives the keyboard to the control that had it last, or to the
  /// first that can take it.
  void BringUp();
  /// Minimises the window.
  void PutAway();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  bool CanTakeKeys(const QWidget& control) const;
  void TakeKeyboard();

  QWidget& window_;
  QPointer<QWidget> lastControl_;  // had the keyboard when the window was put away
};

}  // namespace velmora
