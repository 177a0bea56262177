// The box of an experiment's description.
#pragma once

#include <QLineEdit>

namespace velmora {

/// Lets in only what the experiment's file can give back. A typed comma, leading blank or letter
/// outside Windows-1252 is refused with a beep; what comes in otherwise (pasted, dropped, composed)
/// is made to fit, with a beep where letters are left out.
class DescriptionBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit DescriptionBox(QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace velmora
