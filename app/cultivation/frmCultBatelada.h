// The batch-cultivation window: conditions, model, fit set-up, run and results.
#pragma once

#include <QPoint>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <optional>

#include "app/widgets/Dialogs.h"
#include "app/widgets/FoldingWindow.h"
#include "cultivation/CultivationForm.h"
#include "session/Operations.h"

class QVBoxLayout;

namespace velmora {

class ChartsPanel;
class ExperimentPanel;
struct ComparedModel;
class FormEntry;
class NumberEntry;
class RunDisplay;
class frmComparacao;

class frmCultBatelada : public FoldingWindow {
  Q_OBJECT

 public:
  frmCultBatelada(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  /// Puts the computed curves on the clipboard as text.
  void ExportarDados();
  /// Saves the conditions to a file that the user chooses.
  void SalvarArqCondBat();
  /// Opens a conditions file that the user chooses; only then are stored conditions cleared, and
  /// the boxes emptied where none are stored.
  void AbrirCondBat();
  /// As `AbrirCondBat`, of the file `file`.
  void Open(const QString& file);
  /// Clears the stored conditions of the experiment at `place`.
  void LimpaVet(int place);
  /// Empties every box.
  void LimpaCaixaTexto();
  int NumExperimentos() const;
  /// Shows what was changed elsewhere.
  void Show(const Change& change);
  /// Redraws the three plots.
  void GraficoSub();
  /// Shows the legend, or hides it.
  void LegendaSub();

  /// Whether a search is running; StopRun ends it at its next generation without a question.
  bool Running() const;
  /// Whether the boxes hold what is not stored, and storing it, with what is to be said.
  bool EntryChanged() const;
  void SalvarCondCult();
  void StopRun();

 signals:
  void Changed(const velmora::Change& change);
  /// The user has entered something, or written the conditions to a file.
  void Edited();
  /// A search has begun, or ended.
  void RunningChanged(bool running);
  /// The user goes back to the experiments window.
  void BackToExperiments();
  /// The plot `chart` ("picCx", "picCs", "picCp") was right-clicked.
  void ChartMenu(const QString& chart, const QPoint& globalPosition);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BuildPanels();
  void LayOut();
  QWidget* Arranged(Fold fold) override;
  QWidget* Columns();
  QWidget* Tabs(bool alone);
  /// The score's course stands where there is room for it, else only while a search is going.
  void PlaceScore();
  void Wire();
  void ShowAtStart();

  /// Shows a change of this window's, and tells everybody.
  void Announce(const Change& change);
  Answer Tell(const Message& message, Buttons buttons = Buttons::Ok);
  void Refuse(const Refusal& refusal);

  // The experiment shown.
  bool IsSaved(int place) const;
  /// The number of the experiment shown.
  std::int16_t Number() const;
  void ShowPlaceAfter(const Change& change);
  /// Shows the experiment at `place`, 0 for none: its stored conditions, or what they may begin
  /// with.
  void MostrarCondCult(int place);
  void ShowStored(const ConditionsRecord& record);
  /// Shows what the conditions may begin with, but in boxes that the user has edited.
  void ShowSuggested();
  /// Shows what stood in the boxes, over what is stored of its experiment.
  void ShowDraft(const FormDraft& draft);
  void ShowStanding();
  void Step(int step);

  /// Fills what is empty with what the data propose.
  void Propose();
  /// Stores what is shown for all experiments, after a question.
  void UseForAll();

  // The run.
  void Ajustar();
  /// Searches by Levenberg-Marquardt from the last result.
  void Improve();
  void CompareModels();
  void TakeModel(const ComparedModel& compared);
  /// Brings back what stood in the boxes before a model was taken over.
  void ReturnToPrevious();

  Session& session_;
  Dialogs& dialogs_;
  ExperimentPanel* experiment_ = nullptr;
  FormEntry* entry_ = nullptr;
  RunDisplay* run_ = nullptr;
  ChartsPanel* charts_ = nullptr;
  NumberEntry* numbers_ = nullptr;
  QPointer<frmComparacao> comparison_;
  QVBoxLayout* choicesColumn_ = nullptr;  // of the columns
  QVBoxLayout* runColumn_ = nullptr;
  std::optional<CultivationForm> previous_;  // before a model was taken over
  int place_ = 0;                            // of the experiment shown
};

}  // namespace velmora
