// Changes of the experiment list that reach what belongs to its places.
#pragma once

#include <optional>

#include "app/Session.h"

namespace velmora {

/// Removes the experiment at `place` with its conditions and curve; those of later places move down
/// by one. For a place that is none: the refusal to show, nothing changed.
std::optional<Message> DeleteExperiment(Session& session, int place);

/// Puts `lists` in place of the session's, whose conditions and curves go.
void ReplaceExperiments(Session& session, ExperimentLists lists);

}  // namespace velmora
