#include "cultivation/FaultDescription.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "app/Bilingual.h"

namespace velmora {
namespace {

constexpr std::array<Bilingual, 3> kKinds = {{
    {"division by zero", "divisão por zero"},
    {"overflow", "valor grande demais"},
    {"power without a value", "potência sem valor"},
}};

constexpr std::array<Bilingual, 16> kTerms = {{
    {"in the substrate power Cs^u", "na potência do substrato Cs^u"},
    {"in the cell power of the Contois term", "na potência das células do termo de Contois"},
    {"in the substrate-inhibition term", "no termo de inibição pelo substrato"},
    {"in the substrate quotient", "no quociente do substrato"},
    {"in the Levenspiel term", "no termo de Levenspiel"},
    {"in the Lee term", "no termo de Lee"},
    {"in the Aiba term", "no termo de Aiba"},
    {"in the Hoppe term", "no termo de Hoppe"},
    {"in the cell balance", "no balanço de células"},
    {"in the substrate balance", "no balanço de substrato"},
    {"in the product balance", "no balanço de produto"},
    {"in a computed concentration", "em uma concentração calculada"},
    {"in the count of rate evaluations", "na contagem de avaliações das taxas"},
    {"in the interpolation at a measured time", "na interpolação em um tempo medido"},
    {"in the sum of squared errors", "na soma do quadrado dos erros"},
    {"in the deviations", "nos desvios"},
}};
static_assert(kTerms.size() == static_cast<std::size_t>(FaultTerm::Deviations) + 1);

constexpr Bilingual kExperiment = {"experiment ", "experimento "};
constexpr Bilingual kPoint = {"point ", "ponto "};
constexpr Bilingual kOf = {" of ", " de "};

std::string Place(const ArithmeticFault& fault, int experiment, Language language) {
  std::string place;
  if (fault.place != 0) place = std::string(kExperiment.In(language)) + std::to_string(experiment);
  if (fault.point == 0) return place;
  if (!place.empty()) place += ", ";
  return place + std::string(kPoint.In(language)) + std::to_string(fault.point) +
         std::string(kOf.In(language)) + std::to_string(kModelPoints);
}

}  // namespace

std::string FaultDescription(const ArithmeticFault& fault, int experiment, Language language) {
  std::string text(kKinds.at(static_cast<std::size_t>(fault.kind)).In(language));
  text += ' ';
  text += kTerms.at(static_cast<std::size_t>(fault.term)).In(language);
  const std::string place = Place(fault, experiment, language);
  return place.empty() ? text : text + " (" + place + ")";
}

void EndCurveAt(const ArithmeticFault& fault, ModelCurve& curve) {
  const auto first = static_cast<std::size_t>(std::clamp(fault.point - 1, 0, kModelPoints));
  for (ModelCurve::Series* series : {&curve.time, &curve.Cx, &curve.Cs, &curve.Cp})
    std::fill(series->begin() + static_cast<std::ptrdiff_t>(first), series->end(),
              first == 0 ? 0 : (*series)[first - 1]);
}

}  // namespace velmora
