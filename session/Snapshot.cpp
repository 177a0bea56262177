#include "session/Snapshot.h"

namespace velmora {

Snapshot TakeSnapshot(const Session& session, const Snapshot& before) {
  const bool same = before.lists && *before.lists == session.lists;
  return {same ? before.lists : std::make_shared<const ExperimentLists>(session.lists),
          session.conditions,
          session.draft,
          session.curves,
          session.lastRun,
          session.experimentsFile,
          session.conditionsFile};
}

Change Restore(Session& session, const Snapshot& snapshot) {
  Change change;
  change.lists = !(session.lists == *snapshot.lists);
  change.conditions = !(session.conditions == snapshot.conditions);
  change.curves = true;
  change.results = session.lastRun != snapshot.lastRun;
  change.restored = true;
  session.lists = *snapshot.lists;
  session.conditions = snapshot.conditions;
  session.draft = snapshot.draft;
  session.curves = snapshot.curves;
  session.lastRun = snapshot.lastRun;
  session.experimentsFile = snapshot.experimentsFile;
  session.conditionsFile = snapshot.conditionsFile;
  return change;
}

}  // namespace velmora
