#include "app/shell/History.h"

#include <utility>

namespace velmora {
namespace {

constexpr int kMostSteps = 100;

}  // namespace

class History::StepCommand : public QUndoCommand {
 public:
  StepCommand(History& history, State before, State after, int place)
      : history_(history), before_(std::move(before)), after_(std::move(after)), place_(place) {}

  int id() const override { return place_ == 0 ? -1 : place_; }
  bool mergeWith(const QUndoCommand* later) override {
    after_ = static_cast<const StepCommand*>(later)->after_;
    return true;
  }
  void undo() override { Enter(before_); }
  void redo() override {
    // Pushed, a step has been taken already.
    if (std::exchange(taken_, true)) Enter(after_);
  }

 private:
  void Enter(const State& state) {
    history_.state_ = state;
    emit history_.Restored(Restore(history_.session_, *state));
  }

  History& history_;
  State before_;
  State after_;
  int place_;
  bool taken_ = false;
};

History::History(Session& session, QObject* parent)
    : QObject(parent), session_(session), state_(std::make_shared<Snapshot>()) {
  state_ = Now();
  steps_.setUndoLimit(kMostSteps);
}

History::State History::Now() const {
  return std::make_shared<Snapshot>(TakeSnapshot(session_, *state_));
}

void History::Step(int place) {
  State before = std::exchange(state_, Now());
  steps_.push(new StepCommand(*this, std::move(before), state_, place));
}

void History::Amend() {
  *state_ = TakeSnapshot(session_, *state_);
}

void History::Undo() {
  steps_.undo();
}

void History::Redo() {
  steps_.redo();
}

}  // namespace velmora
