#include "cultivation/Simulation.h"

#include <algorithm>

#include "kinetics/Runge_Kutta.h"

namespace velmora {

std::vector<ArithmeticFault> Manual(const CultivationConditions& conditions, int experiments,
                                    ModelCurves& curves) {
  std::vector<ArithmeticFault> faults;
  Runge_Kutta integrator;
  for (int place = 1; place <= experiments; ++place) {
    try {
      integrator.Integrate(VectorOf(conditions.At(place).row),
                           curves.at(static_cast<std::size_t>(place) - 1));
    } catch (ArithmeticFault& fault) {
      fault.place = place;
      faults.push_back(fault);
    }
  }
  return faults;
}

void EndCurveAt(const ArithmeticFault& fault, ModelCurve& curve) {
  const auto first = static_cast<std::size_t>(std::clamp(fault.point - 1, 0, kModelPoints));
  for (ModelCurve::Series* series : {&curve.time, &curve.Cx, &curve.Cs, &curve.Cp})
    std::fill(series->begin() + static_cast<std::ptrdiff_t>(first), series->end(),
              first == 0 ? 0 : (*series)[first - 1]);
}

}  // namespace velmora
