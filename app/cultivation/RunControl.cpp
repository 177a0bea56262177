#include "app/cultivation/RunControl.h"

#include <QCoreApplication>
#include <algorithm>
#include <new>
#include <utility>

#include "cultivation/FitSetUp.h"

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

std::optional<SearchOutcome> RunControl::Run(FitProblem problem, Method method,
                                             EstimationSettings settings) {
  std::optional<SearchOutcome> outcome = SearchOutcome{std::move(problem), {}, {}, {}};
  problem_ = &outcome->problem;
  stop_ = false;
  try {
    Search(method, settings, *outcome);
  } catch (const std::bad_alloc&) {
    outcome.reset();
  }
  clock_.stop();
  problem_ = nullptr;
  return outcome;
}

void RunControl::Search(Method method, const EstimationSettings& settings, SearchOutcome& outcome) {
  const Objective objective(*problem_);
  for (int i = 0; i < objective.UnscaledVariables(); ++i) emit NotNormalised();
  if (!BoundsAreOrdered(problem_->variables)) return;

  seconds_ = 0;
  elapsed_.start();
  sinceDrawn_.invalidate();
  clock_.start();
  emit Started();
  // The first population takes as long as a generation; the window shows before it that it began.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  outcome.result = SearchBy(method, *problem_, settings, *this);
  ShowTime();
  if (!outcome.result.HasResult()) return;
  outcome.curves = objective.Simulate(outcome.result.best).Curves();
  emit CurvesChanged(outcome.curves);
  outcome.deviations = ComputeDeviations(*problem_, outcome.result.best);
}

bool RunControl::StopRequested() {
  QCoreApplication::processEvents();
  return stop_;
}

void RunControl::Report(const Generation& generation) {
  emit GenerationEnded(generation, problem_->variables);
  if (sinceDrawn_.isValid() && sinceDrawn_.elapsed() < kDrawInterval) return;
  emit CurvesChanged(Objective(*problem_).Simulate(generation.best).Curves());
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
