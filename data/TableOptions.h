// What decides where a table itself does not.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/FileFault.h"
#include "data/NumberMarks.h"

namespace velmora {

/// What a column of a table holds.
enum class Quantity { Experiment, Time, Substrate, Cells, Product };
inline constexpr std::size_t kQuantities = 5;
inline constexpr std::array<std::string_view, kQuantities> kQuantityNames = {"experiment", "t",
                                                                             "Cs", "Cx", "Cp"};

template <class Value>
using ByQuantity = std::array<Value, kQuantities>;

constexpr std::size_t IndexOf(Quantity quantity) {
  return static_cast<std::size_t>(quantity);
}
constexpr std::string_view NameOf(Quantity quantity) {
  return kQuantityNames[IndexOf(quantity)];
}

/// What becomes of a row whose Cs, Cx or Cp is missing.
enum class Missing { Refuse, DropRow, Interpolate };

struct TableOptions {
  std::vector<std::string> only = {};     // labels to keep; empty: all
  std::optional<std::string> sheet = {};  // of a workbook; nothing: the first that is shown
  std::size_t limit = kUsualLimit;        // bytes to which a workbook may unpack
  std::optional<char> decimal = {};       // '.' or ','
  std::optional<Thousands> thousands = {};
  Missing missing = Missing::Refuse;
  // Each in place of what the headers say.
  ByQuantity<std::optional<std::string>> columns = {};  // the header, or the column's place from 1
  ByQuantity<std::optional<std::string>> units = {};
  ByQuantity<std::optional<double>> molarMasses = {};  // g/mol
};

}  // namespace velmora
