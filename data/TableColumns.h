// What the columns of a table hold, by their headers.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/CsvTable.h"

namespace velmora {

enum class Quantity { Experiment, Time, Substrate, Cells, Product };
inline constexpr std::size_t kQuantities = 5;

/// The name that options and messages use: "experiment", "t", "Cs", "Cx", "Cp".
std::string_view NameOf(Quantity quantity);

/// The columns of each quantity, from 0; the experiments' one may be missing.
class TableColumns {
 public:
  /// Throws a `TableFault` where a column is missing or two may be meant.
  explicit TableColumns(const CsvRow& header);

  std::optional<std::size_t> Experiment() const { return At(Quantity::Experiment); }
  std::size_t Of(Quantity quantity) const { return At(quantity).value(); }

 private:
  std::optional<std::size_t> At(Quantity quantity) const {
    return columns_[static_cast<std::size_t>(quantity)];
  }

  std::array<std::optional<std::size_t>, kQuantities> columns_;
};

/// Knows a header by the quantities that it names.
class QuantityHeader : public HeaderSigns {
 public:
  int Named(const std::vector<std::string>& cells) const override;
};

}  // namespace velmora
