// The window of the differential-evolution settings.
#pragma once

#include <QDialog>
#include <array>

#include "app/widgets/Dialogs.h"
#include "session/Session.h"

class QLineEdit;
class QPushButton;

namespace velmora {

/// Opens with the stored settings; they change only where all seven boxes pass the checks. Enter
/// moves to the next box, Escape closes.
class frmParametros : public QDialog {
  Q_OBJECT

 public:
  frmParametros(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  void Wire();
  void ShowSettings();

  /// Stores the settings and closes, or shows what is out of bounds.
  void Apply();

  static constexpr std::size_t kBoxes = 7;

  Session& session_;
  Dialogs& dialogs_;
  std::array<QLineEdit*, kBoxes> boxes_{};  // by row, the order in which they are checked
  QPushButton* cdmAtualizar_ = nullptr;
  QPushButton* cdmFechar_ = nullptr;
};

}  // namespace velmora
