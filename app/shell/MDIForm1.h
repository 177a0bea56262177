// The frame window: menus over the two work windows.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTranslator>

#include "app/widgets/Dialogs.h"
#include "session/Operations.h"

class QMdiArea;

namespace velmora {

class ChildFrame;
class MainMenu;
class frmCultBatelada;
class frmMsFlexGrid;
class frmParametros;
class frmSobre;

/// Holds the experiments window and the cultivation window, one maximised and the other minimised;
/// both live until the lists are cleared, when they are unloaded and loaded anew.
class MDIForm1 : public QMainWindow {
  Q_OBJECT

 public:
  MDIForm1(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  /// Opens the files that the program was started with, each in the window that its content belongs
  /// to: experiments first, then conditions, for which the user is asked to choose the experiments
  /// where there are none.
  void OpenFiles(const QStringList& files);

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  /// Asks before the program ends; a run that is going is stopped.
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  void Wire();
  void ShowAtStart();

  void LoadChildren();
  void UnloadChildren();
  ChildFrame* Frame(QWidget* child);
  void Bring(ChildFrame* front, ChildFrame* back);

  void ShowExperiments();
  void ShowCultivation();
  bool MayOpenExperiments();
  void OpenExperiments();
  void ShowOpenedExperiments();
  void OpenConditions();
  void SaveExperiments();
  void SaveConditions();
  void ClearAll();
  void ExportCurves();

  void OpenZoom();
  void CopyChart();
  void ToggleLegend();
  void ToggleGridLines();
  void ShowChartMenu(const QString& chart, const QPoint& globalPosition);

  void ShowSettings();
  void ShowAbout();
  void ShowHelp();
  void SwitchLanguage(Language language);
  /// Gives the toolkit's own texts (file dialogs, the menu of a text box) the session's language,
  /// where their catalogue is installed.
  void TranslateToolkit();

  /// Shows in all windows what one of them changed.
  void Show(const Change& change);

  bool CultivationActive() const;
  bool RunGoing() const;
  bool Confirmed(const Message& question);
  /// Enables and checks the items by what there is to save, delete and export; while a search is
  /// going, nothing that it fits can be changed.
  void RefreshMenus();

  Session& session_;
  Dialogs& dialogs_;
  QMdiArea* area_ = nullptr;
  MainMenu* menu_ = nullptr;
  frmMsFlexGrid* experiments_ = nullptr;
  frmCultBatelada* cultivation_ = nullptr;
  ChildFrame* experimentsFrame_ = nullptr;
  ChildFrame* cultivationFrame_ = nullptr;
  QPointer<frmParametros> settingsWindow_;
  QPointer<frmSobre> aboutWindow_;
  QTranslator toolkitTexts_;
};

}  // namespace velmora
