// The dialog that asks for a chart's title.
#pragma once

#include <QDialog>

#include "session/Session.h"

class QLineEdit;
class QPushButton;

namespace velmora {

class dlgTituloGrafico : public QDialog {
  Q_OBJECT

 public:
  explicit dlgTituloGrafico(const Session& session, QWidget* parent = nullptr);

  /// The typed title, less the blanks around it.
  QString Title() const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  void Wire();

  const Session& session_;
  QLineEdit* txtTitulo_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace velmora
