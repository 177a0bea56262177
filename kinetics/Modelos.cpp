#include "kinetics/Modelos.h"

#include <algorithm>

namespace velmora {
namespace {

bool InhibitedBySubstrate(const Model& model) {
  return model.substrate == SubstrateTerm::Andrews || model.substrate == SubstrateTerm::Wu;
}

/// Whether an inhibition term of the model stands at its neutral values and none of its parameters
/// is fitted: such a row is the simpler model's.
bool HasIdleTerm(const Model& model, const KineticParameters& p, std::span<const At> fitted) {
  const auto idle = [&](At limit, At exponent) {
    const bool isFitted = std::any_of(fitted.begin(), fitted.end(), [=](At position) {
      return position == limit || position == exponent;
    });
    return Uses(model, limit) && !isFitted && p[limit] == 1 && p[exponent] == 0;
  };
  return idle(At::CpAst, At::n) || idle(At::CxAst, At::m);
}

std::string_view SubstrateQuotient(SubstrateTerm term) {
  switch (term) {
    case SubstrateTerm::Contois:
      return "µmax·Cs/(Cs + Ks·Cx)";
    case SubstrateTerm::Moser:
      return "µmax·Cs^u/(Cs^u + Ks)";
    case SubstrateTerm::Andrews:
      return "µmax·Cs/(Cs + Ks + Cs²/Kis)";
    case SubstrateTerm::Wu:
      return "µmax·Cs/(Cs + Ks + Cs·(Cs/Kis)^v)";
    case SubstrateTerm::Monod:
      break;
  }
  return "µmax·Cs/(Cs + Ks)";
}

std::string_view ProductFactor(ProductTerm term) {
  switch (term) {
    case ProductTerm::Hoppe:
      return "·Kip/(Kip + Cp)";
    case ProductTerm::Aiba:
      return "·exp(−Kip·Cp)";
    case ProductTerm::Levenspiel:
      return "·(1 − Cp/Cp*)^n";
    case ProductTerm::None:
      break;
  }
  return "";
}

}  // namespace

const Model* FindModel(std::string_view name) {
  const auto at = std::find_if(kModels.begin(), kModels.end(),
                               [=](const Model& model) { return model.name == name; });
  return at == kModels.end() ? nullptr : &*at;
}

bool Uses(const Model& model, At position) {
  switch (position) {
    case At::muMax:
    case At::Ks:
      return true;
    case At::Kis:
      return InhibitedBySubstrate(model);
    case At::Kip:
      return model.product == ProductTerm::Hoppe || model.product == ProductTerm::Aiba;
    case At::CpAst:
    case At::n:
      return model.product == ProductTerm::Levenspiel;
    case At::CxAst:
    case At::m:
      return model.cell == CellTerm::Lee;
    case At::u:
      return model.substrate == SubstrateTerm::Moser;
    case At::v:
      return model.substrate == SubstrateTerm::Wu;
    default:
      return false;
  }
}

void SetModelSwitches(const Model& model, KineticParameters& parameters) {
  const auto neutral = [&](At position, double value) {
    if (!Uses(model, position)) parameters[position] = value;
  };
  neutral(At::Kis, 1);
  neutral(At::Kip, 1);
  neutral(At::CpAst, 1);
  neutral(At::CxAst, 1);
  neutral(At::m, 0);
  neutral(At::n, 0);
  neutral(At::u, 1);
  neutral(At::v, model.substrate == SubstrateTerm::Andrews ? 1 : 0);
  const auto set = [&](At position, bool on) { parameters[position] = on ? 1 : 0; };
  set(At::C, InhibitedBySubstrate(model));
  set(At::B, model.substrate == SubstrateTerm::Contois);
  set(At::B1, model.substrate != SubstrateTerm::Contois);
  set(At::B2, model.product == ProductTerm::Aiba);
  set(At::G, model.product == ProductTerm::Aiba);
  set(At::H1, model.product == ProductTerm::Hoppe);
}

void SetModelSwitches(const Model& model, ConditionsRow& row) {
  KineticParameters vector = VectorOf(row);
  SetModelSwitches(model, vector);
  std::copy(vector.values.begin(), vector.values.end(), row.values.begin());
}

std::vector<const Model*> ModelsOf(const KineticParameters& parameters,
                                   std::span<const At> fitted) {
  std::vector<const Model*> models;
  for (const Model& model : kModels) {
    KineticParameters asSet = parameters;
    SetModelSwitches(model, asSet);
    const bool fits = std::all_of(fitted.begin(), fitted.end(),
                                  [&](At position) { return Uses(model, position); });
    if (fits && asSet == parameters && !HasIdleTerm(model, parameters, fitted))
      models.push_back(&model);
  }
  return models;
}

std::string Equation(const Model& model) {
  std::string text = "µ = ";
  text += SubstrateQuotient(model.substrate);
  text += ProductFactor(model.product);
  if (model.cell == CellTerm::Lee) text += "·(1 − Cx/Cx*)^m";
  return text;
}

}  // namespace velmora
