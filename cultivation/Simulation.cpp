#include "cultivation/Simulation.h"

#include "kinetics/Runge_Kutta.h"
#include "language/Numbers.h"

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

std::string ExportarDados(const ModelCurves& curves, int experiments, char separator) {
  const std::string kHeading = "Experimento: ";  // in both languages
  constexpr std::string_view kHeader = "t(h)    Cx(g/L) Cs(g/L) Cp(g/L)\r\n";
  const auto number = [=](double value) { return Formatted(value, kFour, separator); };
  std::string text;
  for (int place = 1; place <= experiments; ++place) {
    const ModelCurve& curve = curves.at(static_cast<std::size_t>(place) - 1);
    text += kHeading + std::to_string(place) + "\r\n";
    text += kHeader;
    for (std::size_t j = 0; j < static_cast<std::size_t>(curve.points); ++j)
      text += number(curve.time[j]) + "\t" + number(curve.Cx[j]) + "\t" + number(curve.Cs[j]) +
              "\t" + number(curve.Cp[j]) + "\r\n";
    text += "\r\n";
  }
  return text;
}

}  // namespace velmora
