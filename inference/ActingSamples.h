// Whether samples were taken where a parameter acts.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "estimation/FitProblem.h"

namespace velmora {

/// What is missing where a parameter acts; the texts from `TextId::NoLowCs` on stand in this order.
enum class MissingSample : std::uint8_t {
  LowCs,          // Cs below 2 Ks
  LowCsForCells,  // Cs below 2 Ks Cx (Contois)
  LowCsPower,     // Cs below 2 Ks^(1/u) (Moser)
  HighCs,         // Cs above Kis
  HighCp,         // Cp above Kip (Hoppe)
  HighCpAiba,     // Cp above ln 2/Kip, where growth is halved
  HalfOfCpAst,    // Cp above half of Cp*
  HalfOfCxAst,    // Cx above half of Cx*
};

/// The sample that the parameter at `position` needs and that no experiment of the problem has, its
/// constants as in `candidate`, which is as long as the variables. Samples are those that are
/// scored; the experiments are of one model. An exponent needs what the constant of its term needs.
std::optional<MissingSample> MissingFor(At position, const FitProblem& problem,
                                        std::span<const double> candidate);

}  // namespace velmora
