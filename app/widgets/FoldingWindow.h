// A work window whose columns become tabs where they have no room side by side.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <initializer_list>

class QTabWidget;
class QVBoxLayout;

namespace velmora {

/// Folds as its size wants it; so small as its tabs can be, it need not scroll.
class FoldingWindow : public QWidget {
 public:
  explicit FoldingWindow(QWidget* parent = nullptr);

  /// What the tabs need.
  QSize minimumSizeHint() const override { return folded_.expandedTo(QWidget::minimumSize()); }
  bool Folded() const { return isFolded_; }
  /// Brings the tab that holds `control` to the front.
  void Reveal(const QWidget& control);

 protected:
  /// The panels in a new widget, side by side or, folded, as tabs beside what stays in view.
  virtual QWidget* Arranged(bool folded) = 0;
  /// Finds out what room both arrangements need, and folds accordingly. To be called when the
  /// panels stand, and whenever their texts have changed.
  void Measure();
  /// Where panels stand that never fold, above the others.
  QVBoxLayout& Above() const { return *above_; }
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fold(bool folded);
  void OrderTabs();
  void FoldToFit();

  QVBoxLayout* above_;
  QWidget* body_ = nullptr;
  bool isFolded_ = false;
  QSize folded_;
  QSize unfolded_;
};

/// Adds a tab of `panels`, one above the other; the last takes what room is left where it can.
void AddTab(QTabWidget& tabs, const QString& caption, std::initializer_list<QWidget*> panels);

}  // namespace velmora
