// A simulation or a search, its course, its results and its report.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "app/cultivation/RunControl.h"
#include "app/cultivation/SummaryText.h"
#include "app/widgets/Dialogs.h"
#include "estimation/ResultTexts.h"
#include "inference/Verdicts.h"
#include "session/Operations.h"

namespace velmora {

class FormEntry;
class ResultsPanel;
class RunPanel;
class ScoreView;
class frmCerteza;
class frmRelatorio;

/// Owns what the panels of a run say to each other, and puts the estimated values into the form.
class RunDisplay : public QObject {
  Q_OBJECT

 public:
  RunDisplay(Session& session, Dialogs& dialogs, FormEntry& entry, QWidget* parent);
  /// Waits for a verdict that is being found.
  ~RunDisplay() override;

  /// The panels, for the window to lay out.
  RunPanel& Panel() const { return *panel_; }
  ResultsPanel& Results() const { return *results_; }
  ScoreView& Score() const { return *score_; }

  /// Empties the course of the last run; its results can still be reported.
  void Clear();
  void Simulate();
  /// Searches where the user agrees; returns when the search has ended or was stopped.
  void Estimate();
  /// Searches without a question by `method`, from what the form shows.
  void Search(Method method);
  /// Shows the estimated values of the last run.
  void ShowEstimated() { ShowParameters(true); }
  bool Running() const { return running_; }
  /// Ends the search at its next generation; nothing is asked or told any more.
  void StopQuietly();
  /// The form shows what is stored, and no estimated values.
  void FormShowsStored();
  /// The last run is another, or none.
  void ShowLast();
  void SetLanguage(Language language);

 signals:
  void RunningChanged(bool running);
  /// The curves of a search that goes on.
  void CurvesMoved();
  void Changed(const velmora::Change& change);

 private:
  void Wire();
  QWidget* Window() const;
  void SetRunning(bool running);
  /// Where the keyboard is in this window, or will be once the window is active again.
  QWidget* Keyboard() const;
  TextStyle Style() const { return {session_.language, session_.separator}; }
  void BeginResults();
  void ShowGeneration(const Generation& generation, const std::vector<FitVariable>& variables);
  /// Says how far the search is, and how long it can still take.
  void ShowCourse();
  void ShowOutcome(const SearchOutcome& outcome);
  void ShowResult(const SearchOutcome& outcome);
  /// Says where the last run stands; what the data tell of it follows as soon as it is found.
  void ShowSummary();
  void ShowVerdict(const FitVerdict& verdict);
  /// The summary, with the verdicts where they are found.
  std::vector<SummaryLine> Summary(const FitVerdict* verdict) const;
  void AskToStop();
  /// Shows the estimated values, or those from which the search started.
  void ShowParameters(bool estimated);
  /// Shows the report of the last run that had a result, with the data and curves that it had.
  void Relatorio();
  /// Shows profiles and correlations of the last run.
  void ShowHowSure();
  /// Marks the estimates that lie at a bound.
  void MarkBounds(const ParameterVerdicts& verdicts);

  Session& session_;
  Dialogs& dialogs_;
  FormEntry& entry_;
  RunPanel* panel_;
  ResultsPanel* results_;
  ScoreView* score_;
  RunControl* run_;
  QPointer<frmRelatorio> reportWindow_;
  QPointer<frmCerteza> howSureWindow_;
  struct Reached {
    int generation = 0;
    std::int32_t evaluations = 0;
  };
  Reached reached_;
  std::shared_ptr<const FitVerdict> verdict_;  // of the last run; none before it is found
  QElapsedTimer elapsed_;
  int generations_ = 0;  // at most, in the search that goes on; 0 where nobody knows
  bool running_ = false;
  bool estimatedShown_ = false;
  bool quiet_ = false;  // the program is being closed
};

}  // namespace velmora
