// The frame window: menus over the two work windows.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTranslator>

#include "app/widgets/Dialogs.h"
#include "session/Operations.h"
#include "session/Unsaved.h"

class QMdiArea;

namespace velmora {

class ChildFrame;
class History;
class MainMenu;
class RecoveryFile;
class RecoveryKeeper;
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
  /// From now on keeps the recovery file, which must outlive the frame. What was left behind in it
  /// is offered.
  void KeepRecovery(RecoveryFile& file);

 protected:
  /// Files that are dropped on the frame are opened.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  /// Asks before the program ends, naming what is unsaved; a run that is going is stopped.
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
  /// Saves all that no file holds, as far as the user goes along; whether nothing is left.
  bool SaveAll();
  void OfferRecovery(RecoveryFile& file);
  /// Has the cells selected in the grid cut, copied, pasted or cleared.
  void EditCells(void (frmMsFlexGrid::*edit)());

  void OpenZoom();
  void Enlarge(const QString& chart);
  void CopyChart();
  void ToggleLegend();
  void ToggleGridLines();
  void TogglePublication();
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
  void ShowRestored(const Change& change);
  void Undo();
  void Redo();
  /// What is unsaved, in title and recovery file.
  void ShowUnsaved();
  Unsaved WhatIsUnsaved() const;

  bool CultivationActive() const;
  bool RunGoing() const;
  bool Confirmed(const Message& question, Buttons buttons = Buttons::YesNo);
  /// Enables and checks the items by what there is to save, delete and export; while a search is
  /// going, nothing that it fits can be changed.
  void RefreshMenus();

  Session& session_;
  Dialogs& dialogs_;
  QMdiArea* area_ = nullptr;
  MainMenu* menu_ = nullptr;
  History* history_ = nullptr;
  RecoveryKeeper* keeper_ = nullptr;
  frmMsFlexGrid* experiments_ = nullptr;
  frmCultBatelada* cultivation_ = nullptr;
  ChildFrame* experimentsFrame_ = nullptr;
  ChildFrame* cultivationFrame_ = nullptr;
  QPointer<frmParametros> settingsWindow_;
  QPointer<frmSobre> aboutWindow_;
  QTranslator toolkitTexts_;
  QString title_;
};

}  // namespace velmora
