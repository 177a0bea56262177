// A work window whose columns become tabs where they have no room side by side.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>
#include <initializer_list>

class QTabWidget;
class QVBoxLayout;

namespace velmora {

/// Folds as its size wants it; so small as its tabs can be, it need not scroll.
class FoldingWindow : public QWidget {
 public:
  /// Panels side by side; tabs beside what stays in view; tabs alone.
  enum class Fold : std::uint8_t { Columns, Tabs, TabsAlone };

  explicit FoldingWindow(QWidget* parent = nullptr);

  /// What the tabs alone need.
  QSize minimumSizeHint() const override {
    return rooms_.back().expandedTo(QWidget::minimumSize());
  }
  bool Folded() const { return fold_ != Fold::Columns; }
  /// Brings the tab that holds `control` to the front.
  void Reveal(const QWidget& control);

 protected:
  /// The panels in a new widget.
  virtual QWidget* Arranged(Fold fold) = 0;
  /// Finds out what room each arrangement needs, and folds accordingly. To be called when the
  /// panels stand, and whenever their texts have changed.
  void Measure();
  /// Where panels stand that never fold, above the others.
  QVBoxLayout& Above() const { return *above_; }
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange(Fold fold);
  bool Fits(Fold fold) const;
  void OrderTabs();
  void FoldToFit();

  QVBoxLayout* above_;
  QWidget* body_ = nullptr;
  Fold fold_ = Fold::Columns;
  std::array<QSize, 3> rooms_;  // that the arrangements need
};

/// Adds a tab of `panels`, one above the other; the last takes what room is left where it can.
void AddTab(QTabWidget& tabs, const QString& caption, std::initializer_list<QWidget*> panels);

}  // namespace velmora
