// The frame window: menus over the two work windows.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QSize>
#include <QTranslator>
#include <initializer_list>
#include <utility>

#include "app/widgets/Dialogs.h"
#include "session/Operations.h"

namespace velmora {

class ChartCommands;
class FileCommands;
class History;
class MainMenu;
class RecoveryFile;
class RecoveryKeeper;
class WorkWindows;
class frmMsFlexGrid;
class frmParametros;
class frmSobre;

/// How large the frame opens where a screen leaves it this room.
struct FramePlace {
  QSize size;
  bool maximised = false;
};
FramePlace PlaceOn(const QSize& room);

/// Holds the work windows, which are loaded anew as the lists are cleared.
class MDIForm1 : public QMainWindow {
  Q_OBJECT

 public:
  MDIForm1(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  /// Opens the files that the program was started with.
  void OpenFiles(const QStringList& files);
  /// From now on keeps the recovery file, which must outlive the frame. What was left behind in it
  /// is offered.
  void KeepRecovery(RecoveryFile& file);

 protected:
  /// Files that are dropped on the frame, or on anything in it, are opened.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  /// Asks before the program ends, naming what is unsaved; a run that is going is stopped.
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  template <typename Target>
  void Bind(Target* target,
            std::initializer_list<std::pair<const char*, void (Target::*)()>> commands);
  void Wire();
  void ShowAtStart();

  void LoadWindows();
  void ClearAll();
  void ExportCurves();
  void OfferRecovery(RecoveryFile& file);
  /// Opens what is dropped, where `event` brings files; whether it does.
  bool TakesFiles(QDropEvent& event);
  /// Has the cells selected in the grid cut, copied, pasted or cleared.
  void EditCells(void (frmMsFlexGrid::*edit)());

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

  bool RunGoing() const;
  bool Confirmed(const Message& question, Buttons buttons = Buttons::YesNo);
  /// Enables and checks the items by what there is to save, delete and export; while a search is
  /// going, nothing that it fits can be changed.
  void RefreshMenus();

  Session& session_;
  Dialogs& dialogs_;
  WorkWindows* windows_ = nullptr;
  MainMenu* menu_ = nullptr;
  History* history_ = nullptr;
  RecoveryKeeper* keeper_ = nullptr;
  FileCommands* files_ = nullptr;
  ChartCommands* charts_ = nullptr;
  QPointer<frmParametros> settingsWindow_;
  QPointer<frmSobre> aboutWindow_;
  QTranslator toolkitTexts_;
  QString title_;
};

}  // namespace velmora
