// The dialog that asks for a chart's title.
#pragma once

#include <QDialog>

#include "session/Session.h"

class QLineEdit;

namespace velmora {

class dlgTituloGrafico : public QDialog {
  Q_OBJECT

 public:
  explicit dlgTituloGrafico(const Session& session, QWidget* parent = nullptr);

  /// The typed title, less the blanks around it.
  QString Title() const;

 private:
  QLineEdit* txtTitulo_;
};

}  // namespace velmora
