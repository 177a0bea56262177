// What the user states of one experiment before it is saved: texts as typed, and choices.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kinetics/KineticParameters.h"
#include "kinetics/Modelos.h"
#include "language/Message.h"

namespace velmora {

enum class Method : std::uint8_t { None, Manual, ED, LM };
enum class Production : std::uint8_t { None, PAC, PPAC, PNAC };
enum class Yields : std::uint8_t { Stoichiometric, Global };

/// The option texts of methods and productions: "Manual", "ED", "LM"; "PAC", "PPAC", "PNAC".
std::string_view NameOf(Method method);
std::string_view NameOf(Production production);
Method MethodNamed(std::string_view name);
Production ProductionNamed(std::string_view name);

/// One row of the fit table: whether the parameter is fitted, and its bounds as typed.
struct FitRow {
  bool ticked = false;
  std::string lower;
  std::string upper;
};

/// The cultivation window's boxes and options for one experiment.
struct CultivationForm {
  /// The text of the box of each conditions position 1..31 (index position - 1); positions without
  /// a box (18-23, 29, 30) stay empty. Position 31 is the typed Yps.
  std::array<std::string, 31> texts;
  std::array<FitRow, kFittable.size()> fit;  // in the order of kFittable
  Method method = Method::None;
  Production production = Production::None;
  Yields yields = Yields::Stoichiometric;
  std::array<bool, 3> dataSet{true, true, true};  // Cx, Cs, Cp; no routine reads it
  std::string model;
  bool modelConfirmed = false;

  std::string& At(velmora::At position) { return texts[static_cast<std::size_t>(position) - 1]; }
  const std::string& At(velmora::At position) const {
    return texts[static_cast<std::size_t>(position) - 1];
  }
};

/// A refusal, and the box that it is about.
struct Refusal {
  Message message;
  std::optional<At> box;  // the conditions box to go to
};

}  // namespace velmora
