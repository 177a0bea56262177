// The start window: it asks for the language.
#pragma once

#include <QDialog>

#include "session/Session.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace velmora {

class GrowthCurveView;

/// Sets the session's language as soon as one is chosen. Enter starts, Escape leaves.
class frmSplash : public QDialog {
  Q_OBJECT

 public:
  explicit frmSplash(Session& session, QWidget* parent = nullptr);

 signals:
  /// The language is confirmed; the window closes when the receivers have returned.
  void Confirmed();

 private:
  void BuildPanels();
  void LayOut();
  void Wire();
  void ShowLanguage();

  void Choose(Language language);
  void Confirm();

  Session& session_;
  GrowthCurveView* picture_;
  QLabel* lblNome_;
  QLabel* lblAjusteParCin_;
  QLabel* lblversao_;
  QLabel* lblEscolher_;
  QRadioButton* optIdioma_[2];  // by language code
  QPushButton* cmdOk_;
  QPushButton* cmdSair_;
};

}  // namespace velmora
