// The units of the kinetic parameters, which follow from the model's terms.
#pragma once

#include <string_view>

#include "kinetics/Modelos.h"

namespace velmora {

/// The unit of the fittable parameter at `position`, UTF-8; empty for an exponent. Ks is a ratio of
/// substrate to cells in the Contois term, Kip an inverse concentration in the Aiba term.
constexpr std::string_view UnitOf(At position, const Model& model) {
  switch (position) {
    case At::muMax:
      return "1/h";
    case At::Ks:
      return model.substrate == SubstrateTerm::Contois ? "g/g" : "g/L";
    case At::Kip:
      return model.product == ProductTerm::Aiba ? "L/g" : "g/L";
    case At::Kis:
    case At::CpAst:
    case At::CxAst:
      return "g/L";
    default:
      return "";
  }
}

}  // namespace velmora
