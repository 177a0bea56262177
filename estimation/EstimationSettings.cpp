#include "estimation/EstimationSettings.h"

#include <array>
#include <limits>

#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr double kNoBound = std::numeric_limits<double>::infinity();

struct Check {
  std::optional<double> TypedSettings::*typed;
  double least;
  double most;
};

constexpr std::array<Check, 7> kChecks = {{{&TypedSettings::NPOP, 10, kNoBound},
                                           {&TypedSettings::ITER, 200, kNoBound},
                                           {&TypedSettings::PCROS, 0.5, 0.9},
                                           {&TypedSettings::FACT, 0.5, 0.9},
                                           {&TypedSettings::FACT1, 0, 0.01},
                                           {&TypedSettings::EPS, 0.0000001, 0.0001},
                                           {&TypedSettings::IU, 1000, 9999}}};

}  // namespace

CheckedSettings CheckSettings(const TypedSettings& typed) {
  CheckedSettings checked;
  for (std::size_t i = 0; i < kChecks.size(); ++i) {
    const std::optional<double>& value = typed.*kChecks[i].typed;
    if (value && *value >= kChecks[i].least && *value <= kChecks[i].most) continue;
    checked.refused = i;
    return checked;
  }
  checked.settings = {*typed.NPOP,
                      *typed.ITER,
                      *typed.PCROS,
                      *typed.FACT,
                      *typed.FACT1,
                      *typed.EPS,
                      static_cast<std::int32_t>(RoundHalfEven(*typed.IU, 0))};
  return checked;
}

}  // namespace velmora
