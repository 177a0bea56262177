// One run of the search on the user-interface thread, with its clock and its stop flag.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <optional>
#include <vector>

#include "cultivation/CultivationForm.h"
#include "session/Session.h"

namespace velmora {

/// Lets the window's events through whenever the search asks whether to stop, so that the clock
/// ticks and the stop command is heard. The signals are emitted inside `Run`.
class RunControl : public QObject, private SearchObserver {
  Q_OBJECT

 public:
  explicit RunControl(QObject* parent = nullptr);

  /// Searches, and returns when the search has ended, was stopped or failed; nothing where there is
  /// no memory for it. Not to be called while a run is going.
  std::optional<SearchOutcome> Run(FitProblem problem, Method method, EstimationSettings settings);
  /// Ends the run as soon as the search asks.
  void Stop() { stop_ = true; }

 signals:
  /// A measured variable has no value above 0; once for each.
  void NotNormalised();
  /// The bounds have passed; the search begins.
  void Started();
  void Ticked(int seconds);
  void GenerationEnded(const velmora::Generation& generation,
                       const std::vector<velmora::FitVariable>& variables);
  /// The best fit's curves, at most ten times a second, and at the end.
  void CurvesChanged(const velmora::ModelCurves& curves);

 private:
  bool StopRequested() override;
  void Report(const Generation& generation) override;
  void Tick();
  void ShowTime();
  void Search(Method method, const EstimationSettings& settings, SearchOutcome& outcome);

  bool stop_ = false;
  QTimer clock_;
  QElapsedTimer elapsed_;
  QElapsedTimer sinceDrawn_;
  int seconds_ = 0;
  const FitProblem* problem_ = nullptr;  // of the run that is going
};

}  // namespace velmora
