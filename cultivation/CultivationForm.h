// What the user states of one experiment before it is saved: what stands in the boxes, and choices.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kinetics/Modelos.h"
#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora {

enum class Method : std::uint8_t { None, Manual, ED, LM };
enum class Production : std::uint8_t { None, PAC, PPAC, PNAC };
enum class Yields : std::uint8_t { Stoichiometric, Global };

/// The option texts of methods and productions: "Manual", "ED", "LM"; "PAC", "PPAC", "PNAC".
std::string_view NameOf(Method method);
std::string_view NameOf(Production production);
Method MethodNamed(std::string_view name);
Production ProductionNamed(std::string_view name);

/// A number box: the text that stands in it, and the number behind a text that was not typed, which
/// may show that number shortened.
struct Entry {
  Entry() = default;
  Entry(const char* typed) : text(typed) {}             // NOLINT(google-explicit-constructor)
  Entry(std::string typed) : text(std::move(typed)) {}  // NOLINT(google-explicit-constructor)
  Entry(std::string shown, double number) : text(std::move(shown)), exact(number) {}
  /// The number itself in its shortest text.
  static Entry Of(double value, char separator) { return {PlainText(value, separator), value}; }

  std::string text;
  std::optional<double> exact;

  /// The number that the box stands for; nothing where its text is none.
  std::optional<double> Number(char separator) const {
    return exact ? exact : ReadBox(text, separator);
  }

  friend bool operator==(const Entry&, const Entry&) = default;
};

/// One row of the fit table: whether the parameter is fitted, and its bounds.
struct FitRow {
  bool ticked = false;
  Entry lower;
  Entry upper;

  friend bool operator==(const FitRow&, const FitRow&) = default;
};

/// The cultivation window's boxes and options for one experiment.
struct CultivationForm {
  /// The box of each conditions position 1..31 (index position - 1); positions without a box stay
  /// empty. Position 31 is the typed Yps.
  std::array<Entry, 31> boxes;
  std::array<FitRow, kFittable.size()> fit;  // in the order of kFittable
  Method method = Method::None;
  Production production = Production::None;
  Yields yields = Yields::Stoichiometric;
  std::array<bool, 3> dataSet{true, true, true};  // Cx, Cs, Cp; no routine reads it
  std::string model;
  bool modelConfirmed = false;

  Entry& At(velmora::At position) { return boxes[static_cast<std::size_t>(position) - 1]; }
  const Entry& At(velmora::At position) const {
    return boxes[static_cast<std::size_t>(position) - 1];
  }
};

/// A refusal, and the box that it is about.
struct Refusal {
  Message message;
  std::optional<At> box;  // the conditions box to go to
};

}  // namespace velmora
