// The key filter of numeric boxes.
#pragma once

#include <QObject>

class QLineEdit;

namespace velmora {

/// Lets only a well-formed decimal number into the boxes on which it is installed, whether typed,
/// pasted, dropped or composed by an input method; what is refused sounds the beep.
class NumberEntry : public QObject {
  Q_OBJECT

 public:
  /// `separator` is the locale's decimal separator, '.' or ','.
  explicit NumberEntry(char separator, QObject* parent = nullptr);

  /// From now on `box` passes its entry through the filter. The box keeps any text set from code.
  void Watch(QLineEdit& box);

 signals:
  /// A key, or a text that was to be brought in, was refused.
  void Refused();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  char separator_;
};

}  // namespace velmora
