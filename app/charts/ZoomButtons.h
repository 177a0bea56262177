// The buttons of the enlarged chart's window.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>

class QToolButton;

namespace velmora {

enum class ZoomAction : std::uint8_t { Title, Legend, GridLines, Range, Copy, Save, Print, Close };

class ZoomButtons : public QWidget {
  Q_OBJECT

 public:
  explicit ZoomButtons(QWidget* parent);

  /// Shows which of the three that can be removed again are on the chart.
  void SetShown(bool title, bool legend, bool gridLines);

 signals:
  void Wanted(velmora::ZoomAction action);

 private:
  QToolButton& Button(ZoomAction action) const;

  std::array<QToolButton*, 8> buttons_{};  // by action
};

}  // namespace velmora
