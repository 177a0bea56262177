#include "session/Session.h"

#include <algorithm>

namespace velmora {

bool ExperimentDraft::Unsaved() const {
  return edited && (!std::all_of(rows.begin(), rows.end(), IsEmpty) || !header.description.empty());
}

bool Session::CurvesPresent() const {
  return std::any_of(curves.begin(), curves.end(),
                     [](const ModelCurve& curve) { return curve.points > 0; });
}

}  // namespace velmora
