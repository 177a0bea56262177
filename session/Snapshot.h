// What the user has made, taken down whole, for undo and redo.
#pragma once

#include <memory>
#include <string>

#include "session/Operations.h"
#include "session/Session.h"

namespace velmora {

struct Snapshot {
  std::shared_ptr<const ExperimentLists> lists;  // shared by snapshots that agree in them
  CultivationConditions conditions;
  ExperimentDraft draft;
  ModelCurves curves{};
  std::shared_ptr<const FinishedRun> lastRun;
  std::string experimentsFile;
  std::string conditionsFile;
};

/// The state as it is; `before`, an earlier one, lends what has not changed since.
Snapshot TakeSnapshot(const Session& session, const Snapshot& before);

/// Makes the state the one of the snapshot.
Change Restore(Session& session, const Snapshot& snapshot);

}  // namespace velmora
