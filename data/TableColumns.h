// What the columns of a table hold, by their headers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/TableOptions.h"
#include "data/TableRows.h"
#include "data/TableUnits.h"

namespace velmora {

/// The columns of each quantity, from 0, by what is given, else by their headers; the experiments'
/// one may be missing.
class TableColumns {
 public:
  /// Throws a `TableFault` where a column is missing or two may be meant.
  TableColumns(const TableRow& header, const ByQuantity<std::optional<std::string>>& given);

  std::optional<std::size_t> Experiment() const { return At(Quantity::Experiment); }
  std::size_t Of(Quantity quantity) const { return At(quantity).value(); }

 private:
  std::optional<std::size_t> At(Quantity quantity) const { return columns_[IndexOf(quantity)]; }

  ByQuantity<std::optional<std::size_t>> columns_;
};

/// The columns whose headers name the quantity, those in this program's words before others.
std::vector<std::size_t> ColumnsNaming(const TableRow& header, Quantity quantity);

/// Whether a header names the quantity otherwise than this program does: "glucose" for Cs.
bool IsByAnotherName(std::string_view header, Quantity quantity);

/// The unit that a header says: "min" of "t_min", "mg/L" of "Glucose (mg/L)".
HeaderUnit UnitInHeader(std::string_view header, Quantity quantity);

/// Knows a header by the quantities that it names, or by words where given columns stand.
class QuantityHeader : public HeaderSigns {
 public:
  explicit QuantityHeader(const ByQuantity<std::optional<std::string>>& given) : given_(given) {}
  int Named(const std::vector<std::string>& cells) const override;

 private:
  const ByQuantity<std::optional<std::string>>& given_;
};

}  // namespace velmora
