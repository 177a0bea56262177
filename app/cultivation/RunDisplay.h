// A simulation or a search, its course, its results and its report.
#pragma once

#include <QObject>
#include <QPointer>
#include <optional>
#include <vector>

#include "app/cultivation/RunControl.h"
#include "app/widgets/Dialogs.h"
#include "report/Relatorio.h"
#include "session/Session.h"

namespace velmora {

class FormEntry;
class ResultsPanel;
class RunPanel;
class ScoreView;
class frmRelatorio;

/// Owns what the panels of a run say to each other. Runs over the session's experiments and
/// conditions, puts the curves into the session and the estimated values into the form.
class RunDisplay : public QObject {
  Q_OBJECT

 public:
  RunDisplay(Session& session, Dialogs& dialogs, FormEntry& entry, QWidget* parent);

  /// The panels, for the window to lay out.
  RunPanel& Panel() const { return *panel_; }
  ResultsPanel& Results() const { return *results_; }
  ScoreView& Score() const { return *score_; }

  void Simulate();
  /// Searches where the user agrees; returns when the search has ended or was stopped.
  void Estimate(const std::vector<FitVariable>& variables);
  bool Running() const;
  /// Ends the search at its next generation; nothing is asked or told any more.
  void StopQuietly();
  /// Whether the form shows the values of the last search.
  bool ShowsEstimated() const { return estimatedShown_; }
  /// The form shows what is stored, and no estimated values.
  void FormShowsStored();
  /// Forgets the last run: its experiments are no more.
  void Forget();
  void SetLanguage(Language language);

 signals:
  void RunningChanged(bool running);
  void CurvesChanged();
  /// A run has begun or ended.
  void SessionChanged();

 private:
  void Wire();
  QWidget* Window() const;
  void SetRunning(bool running);
  void BeginResults();
  void ShowGeneration(const Generation& generation, const std::vector<FitVariable>& variables);
  void ShowOutcome(const RunOutcome& outcome);
  void ShowResult(const RunOutcome& outcome);
  void AppendFault(const ArithmeticFault& fault);
  void AskToStop();
  void TakeCurves(const ModelCurves& curves);
  /// Shows the estimated values, or those from which the search started.
  void ShowParameters(bool estimated);
  /// Shows the report of the last run that had a result, with the data and curves that it had.
  void Relatorio();

  Session& session_;
  Dialogs& dialogs_;
  FormEntry& entry_;
  RunPanel* panel_;
  ResultsPanel* results_;
  ScoreView* score_;
  RunControl* run_;
  std::optional<RunOutcome> lastRun_;  // the last one that had a result
  ReportContent report_;               // of that run, but for its pictures:
  ExperimentLists reportedLists_;      // these show its data
  ModelCurves reportedCurves_;         // and its curves
  QPointer<frmRelatorio> reportWindow_;
  bool estimatedShown_ = false;
  bool quiet_ = false;  // the program is being closed
};

}  // namespace velmora
