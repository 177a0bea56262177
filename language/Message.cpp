#include "language/Message.h"

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

std::string Piece::In(Language language) const {
  if (const TextId* text = std::get_if<TextId>(&content_))
    return std::string(Text(*text, language));
  if (const Pattern* pattern = std::get_if<Pattern>(&content_))
    return Filled(
        pattern->text, language,
        std::vector<std::string_view>(pattern->arguments.begin(), pattern->arguments.end()));
  return std::get<std::string>(content_);
}

std::string Worded(const Message& message, Language language) {
  std::string text;
  for (const Piece& piece : message.pieces) text += piece.In(language);
  return text;
}

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
