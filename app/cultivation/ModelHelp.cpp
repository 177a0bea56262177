#include "app/cultivation/ModelHelp.h"

#include <array>

#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {

// In the order of their terms.
constexpr std::array kSubstrateTerms = {TextId::TermMonod, TextId::TermContois, TextId::TermMoser,
                                        TextId::TermAndrews, TextId::TermWu};
constexpr std::array kProductTerms = {TextId::TermHoppe, TextId::TermAiba, TextId::TermLevenspiel};

// In the order of kFittable.
constexpr std::array kMeanings = {TextId::MeaningMuMax, TextId::MeaningKs,    TextId::MeaningKis,
                                  TextId::MeaningKip,   TextId::MeaningCpAst, TextId::MeaningCxAst,
                                  TextId::MeaningN,     TextId::MeaningM,     TextId::MeaningU,
                                  TextId::MeaningV};
static_assert(kMeanings.size() == kFittable.size());

}  // namespace

QString ModelHelp(const Model& model, Language language) {
  QString help = QString::fromStdString(Equation(model));
  const auto add = [&](TextId text) { help += u'\n' + Caption(text, language); };
  add(kSubstrateTerms[static_cast<std::size_t>(model.substrate)]);
  if (model.product != ProductTerm::None)
    add(kProductTerms[static_cast<std::size_t>(model.product) - 1]);
  if (model.cell == CellTerm::Lee) add(TextId::TermLee);
  return help;
}

QString ParameterHelp(At position, Language language) {
  return Caption(kMeanings[static_cast<std::size_t>(FittableIndex(position))], language);
}

}  // namespace velmora
