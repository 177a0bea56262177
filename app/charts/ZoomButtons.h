// The buttons of the enlarged chart's window.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>

class QToolButton;

namespace velmora {

enum class ZoomAction : std::uint8_t {
  Title,
  Legend,
  GridLines,
  Range,
  Copy,
  Save,
  Print,
  Preview,
  Publication,
  Logarithm,
  Residuals,
  Whole,
  Close,
};

class ZoomButtons : public QWidget {
  Q_OBJECT

 public:
  explicit ZoomButtons(QWidget* parent);

  /// Shows whether what the action brings is on the chart.
  void SetShown(ZoomAction action, bool shown);
  void SetUsable(ZoomAction action, bool usable);

 signals:
  void Wanted(velmora::ZoomAction action);

 private:
  QToolButton& Button(ZoomAction action) const;

  std::array<QToolButton*, 13> buttons_{};  // by action
};

}  // namespace velmora
