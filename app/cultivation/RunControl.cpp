#include "app/cultivation/RunControl.h"

#include <QCoreApplication>
#include <algorithm>
#include <exception>
#include <new>
#include <thread>
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
  WorkAside([&] { outcome.result = SearchBy(method, *problem_, settings, *this, AllCores()); });
  ShowTime();
  if (!outcome.result.HasResult()) return;
  outcome.curves = objective.Simulate(outcome.result.best).Curves();
  emit CurvesChanged(outcome.curves);
  outcome.deviations = ComputeDeviations(*problem_, outcome.result.best);
}

/// Does the work on a thread of its own, and meanwhile what the user wants.
void RunControl::WorkAside(const std::function<void()>& work) {
  std::exception_ptr failure;
  std::atomic<bool> ended = false;
  std::thread thread([&] {
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
    ended = true;
    QMetaObject::invokeMethod(
        this, [] {}, Qt::QueuedConnection);  // wakes the loop below
  });
  while (!ended) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  thread.join();
  if (failure) std::rethrow_exception(failure);
}

void RunControl::Hold(bool held) {
  held_ = held;
  held_.notify_all();
}

bool RunControl::StopRequested() {
  held_.wait(true);
  return stop_;
}

void RunControl::Report(const Generation& generation) {
  QMetaObject::invokeMethod(
      this, [&] { Show(generation); }, Qt::BlockingQueuedConnection);
}

void RunControl::Show(const Generation& generation) {
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
