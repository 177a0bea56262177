#include "app/shell/RecoveryKeeper.h"

#include <utility>

namespace velmora {

RecoveryKeeper::RecoveryKeeper(const Session& session, RecoveryFile& file, QObject* parent,
                               std::chrono::milliseconds delay)
    : QObject(parent), session_(session), file_(file), soon_(this) {
  soon_.setSingleShot(true);
  soon_.setInterval(delay);
  connect(&soon_, &QTimer::timeout, this, &RecoveryKeeper::Write);
}

void RecoveryKeeper::Note(bool unsaved) {
  if (ended_) return;
  if (unsaved) {
    if (!soon_.isActive()) soon_.start();
    return;
  }
  soon_.stop();
  file_.Remove();
}

void RecoveryKeeper::End() {
  Note(false);
  ended_ = true;
}

void RecoveryKeeper::Write() {
  const auto fault = file_.Write(RecoveryText(session_));
  if (!fault) return;
  soon_.start();
  if (!std::exchange(failed_, true)) emit Failed(*fault);
}

}  // namespace velmora
