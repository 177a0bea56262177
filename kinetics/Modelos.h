// The catalogue of growth models, and how a model's name becomes switch values.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kinetics/KineticParameters.h"

namespace velmora {

enum class SubstrateTerm : std::uint8_t { Monod, Contois, Moser, Andrews, Wu };
enum class ProductTerm : std::uint8_t { None, Hoppe, Aiba, Levenspiel };
enum class CellTerm : std::uint8_t { None, Lee };

/// A growth model: substrate term x product term x cell term. Its name identifies it.
struct Model {
  std::string_view name;
  SubstrateTerm substrate;
  ProductTerm product = ProductTerm::None;
  CellTerm cell = CellTerm::None;
};

/// All models, in the order in which they are listed and compared. The combo box, the command
/// line, the guide and the tests read this table; a new model is a new line.
inline constexpr auto kModels = std::to_array<Model>({
    {"Monod", SubstrateTerm::Monod},
    {"Contois", SubstrateTerm::Contois},
    {"Moser", SubstrateTerm::Moser},
    {"Andrews", SubstrateTerm::Andrews},
    {"Wu", SubstrateTerm::Wu},
    {"Hoppe", SubstrateTerm::Monod, ProductTerm::Hoppe},
    {"Aiba", SubstrateTerm::Monod, ProductTerm::Aiba},
    {"Levenspiel", SubstrateTerm::Monod, ProductTerm::Levenspiel},
    {"Lee", SubstrateTerm::Monod, ProductTerm::None, CellTerm::Lee},
    {"Andrews-Hoppe", SubstrateTerm::Andrews, ProductTerm::Hoppe},
    {"Andrews-Aiba", SubstrateTerm::Andrews, ProductTerm::Aiba},
    {"Andrews-Levenspiel", SubstrateTerm::Andrews, ProductTerm::Levenspiel},
    {"Andrews-Lee", SubstrateTerm::Andrews, ProductTerm::None, CellTerm::Lee},
    {"Andrews-Hoppe-Lee", SubstrateTerm::Andrews, ProductTerm::Hoppe, CellTerm::Lee},
    {"Andrews-Aiba-Lee", SubstrateTerm::Andrews, ProductTerm::Aiba, CellTerm::Lee},
    {"Andrews-Levenspiel-Lee", SubstrateTerm::Andrews, ProductTerm::Levenspiel, CellTerm::Lee},
    {"Wu-Hoppe", SubstrateTerm::Wu, ProductTerm::Hoppe},
    {"Wu-Aiba", SubstrateTerm::Wu, ProductTerm::Aiba},
    {"Wu-Levenspiel", SubstrateTerm::Wu, ProductTerm::Levenspiel},
    {"Wu-Lee", SubstrateTerm::Wu, ProductTerm::None, CellTerm::Lee},
    {"Wu-Hoppe-Lee", SubstrateTerm::Wu, ProductTerm::Hoppe, CellTerm::Lee},
    {"Wu-Aiba-Lee", SubstrateTerm::Wu, ProductTerm::Aiba, CellTerm::Lee},
    {"Wu-Levenspiel-Lee", SubstrateTerm::Wu, ProductTerm::Levenspiel, CellTerm::Lee},
    {"Monod-Hoppe-Lee", SubstrateTerm::Monod, ProductTerm::Hoppe, CellTerm::Lee},
    {"Monod-Aiba-Lee", SubstrateTerm::Monod, ProductTerm::Aiba, CellTerm::Lee},
    {"Monod-Levenspiel-Lee", SubstrateTerm::Monod, ProductTerm::Levenspiel, CellTerm::Lee},
    {"Contois-Hoppe-Lee", SubstrateTerm::Contois, ProductTerm::Hoppe, CellTerm::Lee},
    {"Contois-Aiba-Lee", SubstrateTerm::Contois, ProductTerm::Aiba, CellTerm::Lee},
    {"Contois-Levenspiel-Lee", SubstrateTerm::Contois, ProductTerm::Levenspiel, CellTerm::Lee},
    {"Moser-Hoppe-Lee", SubstrateTerm::Moser, ProductTerm::Hoppe, CellTerm::Lee},
    {"Moser-Aiba-Lee", SubstrateTerm::Moser, ProductTerm::Aiba, CellTerm::Lee},
    {"Moser-Levenspiel-Lee", SubstrateTerm::Moser, ProductTerm::Levenspiel, CellTerm::Lee},
});

/// The model with exactly this name (case and hyphens count), or null.
const Model* FindModel(std::string_view name);

/// Whether the model has the fittable parameter at `position`: the union over its terms.
bool Uses(const Model& model, At position);

/// Writes positions 10-23 as the model sets them: its terms' switches, and for each parameter that
/// it does not use the neutral value with which the absent factor of the rate law is 1. The values
/// of the parameters that it uses stay.
void SetModelSwitches(const Model& model, KineticParameters& parameters);
void SetModelSwitches(const Model& model, ConditionsRow& row);

/// The models whose switches `parameters` holds and that use every parameter in `fitted`, in
/// catalogue order. Monod is among the answers for a Moser row with u = 1.
std::vector<const Model*> ModelsOf(const KineticParameters& parameters, std::span<const At> fitted);

/// The unit of the fittable parameter at `position`, UTF-8; empty for an exponent. Ks is a ratio of
/// substrate to cells in the Contois term, Kip an inverse concentration in the Aiba term.
constexpr std::string_view UnitOf(At position, const Model& model) {
  if (position == At::Ks && model.substrate == SubstrateTerm::Contois) return "g/g";
  if (position == At::Kip && model.product == ProductTerm::Aiba) return "L/g";
  return ParameterAt(position).unit;
}

/// The model's specific growth rate on one line, UTF-8: "µ = µmax·Cs/(Cs + Ks)·Kip/(Kip + Cp)".
std::string Equation(const Model& model);

}  // namespace velmora
