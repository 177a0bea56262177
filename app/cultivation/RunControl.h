// One run of the search on a thread of its own, with its clock and its stop flag.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <optional>
#include <vector>

#include "cultivation/CultivationForm.h"
#include "session/Session.h"

namespace velmora {

/// While the search works, the window's events are let through: the clock ticks, the stop command
/// is heard, windows are painted. The search waits while what it reports is shown. The signals are
/// emitted inside `Run`, on the thread that called it.
class RunControl : public QObject, private SearchObserver {
  Q_OBJECT

 public:
  explicit RunControl(QObject* parent = nullptr);

  /// Searches, and returns when the search has ended, was stopped or failed; nothing where there is
  /// no memory for it. Not to be called while a run is going.
  std::optional<SearchOutcome> Run(FitProblem problem, Method method, EstimationSettings settings);
  /// Ends the run at once; of the generation that is going nothing counts.
  void Stop() { stop_ = true; }
  bool Stopping() const { return stop_; }
  /// Lets the search wait, from the next time that it asks whether to stop, and go on.
  void Hold(bool held);

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
  bool StopsAtOnce() override { return stop_; }
  void Report(const Generation& generation) override;
  void Tick();
  void ShowTime();
  void Search(Method method, const EstimationSettings& settings, SearchOutcome& outcome);
  void WorkAside(const std::function<void()>& work);
  void Show(const Generation& generation);

  std::atomic<bool> stop_ = false;
  std::atomic<bool> held_ = false;
  QTimer clock_;
  QElapsedTimer elapsed_;
  QElapsedTimer sinceDrawn_;
  int seconds_ = 0;
  const FitProblem* problem_ = nullptr;  // of the run that is going
};

}  // namespace velmora
