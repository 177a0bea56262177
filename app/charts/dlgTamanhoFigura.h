// The dialog that asks how large a picture is saved.
#pragma once

#include <QDialog>

#include "session/Session.h"

class QSpinBox;

namespace velmora {

class dlgTamanhoFigura : public QDialog {
  Q_OBJECT

 public:
  explicit dlgTamanhoFigura(const Session& session, QWidget* parent = nullptr);

  double Width() const;       // mm
  double Resolution() const;  // dpi

 private:
  QSpinBox* txtLargura_;
  QSpinBox* txtResolucao_;
};

}  // namespace velmora
