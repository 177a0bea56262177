#include "app/cultivation/RunControl.h"

#include <QCoreApplication>
#include <algorithm>
#include <new>

namespace velmora {
namespace {

constexpr int kTick = 1000;         // ms
constexpr int kDrawInterval = 100;  // ms

}  // namespace

RunControl::RunControl(QObject* parent) : QObject(parent), clock_(this) {
  clock_.setObjectName(QStringLiteral("Timer1"));
  clock_.setInterval(kTick);
  connect(&clock_, &QTimer::timeout, this, &RunControl::Tick);
}

RunOutcome RunControl::Run(const FitProblem& problem, const EstimationSettings& settings) {
  RunOutcome outcome;
  outcome.variables = variables_ = problem.variables;
  running_ = true;
  stop_ = false;
  try {
    Search(problem, settings, outcome);
  } catch (const std::bad_alloc&) {
    outcome.outOfMemory = true;
  }
  clock_.stop();
  drawing_.reset();
  running_ = false;
  return outcome;
}

void RunControl::Search(const FitProblem& problem, const EstimationSettings& settings,
                        RunOutcome& outcome) {
  Objective objective(problem);
  for (int i = 0; i < objective.UnscaledVariables(); ++i) emit NotNormalised();
  outcome.result.refusal = RefuseBounds(problem.variables);
  if (outcome.result.refusal) return;

  drawing_ = std::make_unique<Objective>(problem);
  seconds_ = 0;
  elapsed_.start();
  sinceDrawn_.invalidate();
  clock_.start();
  emit Started();
  // The first population takes as long as a generation; the window shows before it that it began.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  outcome.result = velmora::Search(objective, problem.variables, settings, *this);
  ShowTime();
  if (!outcome.HasResult()) return;
  emit CurvesChanged(objective.Curves());
  outcome.deviations = ComputeDeviations(objective, outcome.result.best);
}

bool RunControl::StopRequested() {
  QCoreApplication::processEvents();
  return stop_;
}

void RunControl::Report(const Generation& generation) {
  emit GenerationEnded(generation);
  if (sinceDrawn_.isValid() && sinceDrawn_.elapsed() < kDrawInterval) return;
  drawing_->Simulate(generation.best);
  emit CurvesChanged(drawing_->Curves());
  sinceDrawn_.start();
}

void RunControl::Tick() {
  if (stop_) clock_.stop();
  ++seconds_;
  ShowTime();
}

/// Ticks that fell into a long generation are made up for.
void RunControl::ShowTime() {
  seconds_ = std::max(seconds_, static_cast<int>(elapsed_.elapsed() / kTick));
  emit Ticked(seconds_);
}

}  // namespace velmora
