#include "session/Session.h"

#include <algorithm>
#include <utility>

namespace velmora {

std::optional<Message> DeleteExperiment(Session& session, int place) {
  if (auto refusal = session.lists.Delete(place)) return refusal;
  if (session.lists.Empty()) session.curvesPresent = false;
  if (place > kMostExperiments) return std::nullopt;
  session.conditions.Remove(place);
  ModelCurves& curves = session.curves;
  std::move(curves.begin() + place, curves.end(), curves.begin() + place - 1);
  curves.back() = {};
  return std::nullopt;
}

void ReplaceExperiments(Session& session, ExperimentLists lists) {
  session.lists = std::move(lists);
  session.conditions.Clear();
  session.curves = {};
  session.curvesPresent = false;
}

}  // namespace velmora
