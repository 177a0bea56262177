#include "language/FaultWords.h"

#include "kinetics/ModelCurves.h"

namespace velmora {
namespace {

static_assert(TextOf(TextId::DivisionByZero, FaultKind::InvalidPower) == TextId::PowerWithoutValue);
static_assert(TextOf(TextId::InSubstratePower, FaultTerm::Deviations) == TextId::InDeviations);

std::string Place(const ArithmeticFault& fault, int experiment, Language language) {
  std::string place;
  if (fault.place != 0)
    place = Filled(TextId::FaultExperiment, language, {std::to_string(experiment)});
  if (fault.point == 0) return place;
  if (!place.empty()) place += ", ";
  return place + Filled(TextId::FaultPoint, language,
                        {std::to_string(fault.point), std::to_string(kModelPoints)});
}

}  // namespace

std::string FaultDescription(const ArithmeticFault& fault, int experiment, Language language) {
  if (fault.term == FaultTerm::EvaluationCounter)
    return std::string(Text(TextId::CounterFull, language));
  std::string text(Text(TextOf(TextId::DivisionByZero, fault.kind), language));
  text += ' ';
  text += Text(TextOf(TextId::InSubstratePower, fault.term), language);
  const std::string place = Place(fault, experiment, language);
  return place.empty() ? text : text + " (" + place + ")";
}

}  // namespace velmora
