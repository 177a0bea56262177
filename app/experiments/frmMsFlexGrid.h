// The experiments window: entry of measured points, display choosers, three plots.
#pragma once

#include <QPoint>
#include <QString>

#include "app/experiments/ActionsPanel.h"
#include "app/experiments/ExperimentFiles.h"
#include "app/widgets/Dialogs.h"
#include "app/widgets/FoldingWindow.h"
#include "session/Operations.h"
#include "session/Session.h"

namespace velmora {

class DisplayPanel;
class EntryPanel;
class LegendView;
class PlotsPanel;

class frmMsFlexGrid : public FoldingWindow {
  Q_OBJECT

 public:
  frmMsFlexGrid(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  /// Saves the experiments to a file that the user chooses.
  void OkSub();
  /// Opens a file that the user chooses; only then are the experiments and conditions in the lists
  /// removed. False where the user cancels, or where the file gives no experiment: then everything
  /// stays.
  bool cmdAbrirOkSub();
  /// As `cmdAbrirOkSub`, of the file `file`.
  bool Open(const QString& file);
  /// Whether nothing unsaved is shown, or the user gives it up.
  bool MayLeave();
  /// Saves the experiment shown to the list, after its questions.
  void Save();
  /// Shows the legend, or hides it.
  void LegendaSub();
  /// Redraws the three plots; where no experiment is visible, says so.
  void GraficoSub();
  /// Shows what was changed elsewhere.
  void Show(const Change& change);
  /// Shows a state that was restored, with what was being entered.
  void ShowRestored();

  void Sub_Copiar();
  void Sub_Recortar();
  void Sub_Colar();
  void Sub_Limpar();

 signals:
  void Changed(const velmora::Change& change);
  /// What is being entered has changed; steps in a row with one `place`, not 0, are one.
  void Edited(int place);
  /// Another experiment is shown, in whose place nothing was lost.
  void Moved();
  /// The user goes on to the cultivation window.
  void NextStep();
  /// The plot `chart` ("picCx", "picCs", "picCp") was right-clicked.
  void ChartMenu(const QString& chart, const QPoint& globalPosition);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  QWidget* Arranged(Fold fold) override;
  /// The legend, in the corner that the choosers leave free.
  QWidget* LegendCorner();
  void Wire();
  void ShowAtStart();

  void Do(ExperimentAction action);
  /// Shows a new, empty experiment with the next free number.
  void Insert();
  void Clear();
  void Delete();
  void ToggleGridLines();

  /// Puts the experiment into both lists, with its row of choosers, and takes over the other rows.
  void Inserir_Experimento(Experiment experiment);
  /// Takes the rows of choosers over into the display list.
  Change Verficar_Valores();
  /// How the experiment at `place`, or a new one there, is drawn.
  DisplayEntry DisplayAt(int place) const;
  /// Gives the rows of choosers behind the experiments their usual values.
  void ResetNextDisplays();
  /// Shows the experiment at `place`.
  void Mostrar(int place);
  void ShowNew();
  /// Has the session know what is being entered.
  void NoteDraft();
  /// After a deletion: what is being entered stays, unless it is what was deleted.
  void ShowAfterDeleting(int place);

  /// The user wants the experiment at `place` shown, 0: a new one.
  void ShowPlace(int place);
  int Shown() const { return session_.draft.shown; }
  void TellEmptyPlots();

  void ShowLists();
  void Redraw();
  /// Shows a change of this window's, and tells everybody.
  void Announce(const Change& change);

  Session& session_;
  Dialogs& dialogs_;
  ExperimentFiles files_;
  EntryPanel* entry_ = nullptr;
  DisplayPanel* displays_ = nullptr;
  ActionsPanel* actions_ = nullptr;
  PlotsPanel* plots_ = nullptr;
  LegendView* legend_ = nullptr;
  QWidget* legendCorner_ = nullptr;
  QWidget* graphs_ = nullptr;
};

}  // namespace velmora
