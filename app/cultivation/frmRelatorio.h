// The window that shows the report of a fit before it is saved.
#pragma once

#include <QDialog>

#include "app/widgets/Dialogs.h"
#include "report/Relatorio.h"
#include "session/Session.h"

class QPushButton;
class QTextEdit;

namespace velmora {

/// A report's charts as Qt draws them, PNG pictures.
std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator);

/// Shows one report, as it was handed over; only its language follows the session's.
class frmRelatorio : public QDialog {
  Q_OBJECT

 public:
  frmRelatorio(const Session& session, Dialogs& dialogs, ReportContent report,
               QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  void Wire();
  void ShowReport();
  void Save();

  const Session& session_;
  Dialogs& dialogs_;
  ReportContent report_;
  QTextEdit* RichTextBox1_ = nullptr;
  QPushButton* cmdSalvar_ = nullptr;
  QPushButton* cmdFechar_ = nullptr;
};

}  // namespace velmora
