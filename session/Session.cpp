#include "session/Session.h"

#include <algorithm>

namespace velmora {

bool Session::CurvesPresent() const {
  return std::any_of(curves.begin(), curves.end(),
                     [](const ModelCurve& curve) { return curve.points > 0; });
}

}  // namespace velmora
