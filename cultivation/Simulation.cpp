#include "cultivation/Simulation.h"

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

}  // namespace velmora
