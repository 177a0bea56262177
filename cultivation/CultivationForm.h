// What the user states of one experiment before it is saved, what stands in the boxes and the
// choices, and how a stored record looks there.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/Experiment.h"
#include "kinetics/Modelos.h"
#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora {

enum class Method : std::uint8_t { None, Manual, ED, LM };
enum class Production : std::uint8_t { None, PAC, PPAC, PNAC };
enum class Yields : std::uint8_t { None, Stoichiometric, Global };

/// The option texts of methods and productions: "Manual", "ED", "LM"; "PAC", "PPAC", "PNAC".
std::string_view NameOf(Method method);
std::string_view NameOf(Production production);
Method MethodNamed(std::string_view name);
Production ProductionNamed(std::string_view name);

/// The measured variables as the option text of the data set names them.
inline constexpr std::array<std::string_view, 3> kVariableNames = {"Cx", "Cs", "Cp"};

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

  /// Whether no double holds the number in the text.
  bool OutOfRange(char separator) const {
    return !exact && IsOutOfRange(Normalised(text, separator), separator);
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
  std::array<bool, 3> dataSet{true, true, true};  // of kVariableNames; no routine reads it
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

/// The yields that a stored row was saved with; none where its Fp is neither 0 nor 1.
Yields YieldsOf(const ConditionsRow& row);

/// What the box of `position` shows for `value`: plain number text, "0.00##" for positions 8-11,
/// "0.0###" for 12-17.
Entry Shown(At position, double value, char separator);
/// What the box of alpha shows where the yields decide it: rounded to four decimals.
Entry ShownAlfa(const ConditionsRow& row, char separator);

/// The form that shows a stored record with the fit's table: its boxes, options and fit rows
/// (`MostrarCondCult`). The model is taken from the option text, unconfirmed.
CultivationForm FormOf(const ConditionsRecord& record, const std::vector<FitVariable>& fitted,
                       char separator);

/// The boxes that an experiment without saved conditions begins with: the concentrations of its
/// first measured point, and its final time.
std::vector<std::pair<At, Entry>> SuggestedEntries(const Experiment& experiment, char separator);

/// Whether two forms state the same. Whether the model is confirmed does not count.
bool SameEntries(const CultivationForm& left, const CultivationForm& right);

}  // namespace velmora
