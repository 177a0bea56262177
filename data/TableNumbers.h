// The numbers of a table's cells.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "data/NumberMarks.h"
#include "data/TableColumns.h"
#include "data/TableOptions.h"
#include "data/TableRows.h"

namespace velmora {

inline constexpr std::array kConcentrations = {Quantity::Substrate, Quantity::Cells,
                                               Quantity::Product};
inline constexpr std::array kMeasured = {Quantity::Time, Quantity::Substrate, Quantity::Cells,
                                         Quantity::Product};

/// The text without blanks around it.
std::string_view Trimmed(std::string_view text);

/// How the numbers of one file are written.
class TableNumbers {
 public:
  TableNumbers(const TableOptions& options, char separator);

  /// Looks through the measured cells for one that shows the decimal mark.
  void LearnFrom(const TableRows& table, const TableColumns& columns);

  /// The value of a cell, not negative. Throws a `TableFault` where it is none.
  double Value(const TableRows& table, std::size_t row, std::size_t column) const;

 private:
  std::optional<char> DecimalMarkIn(std::string_view number) const;
  bool HasTwoReadings(std::string_view number) const;
  std::string PlainNumber(const TableRows& table, std::size_t row, std::size_t column) const;

  std::optional<Thousands> thousands_;  // as given
  NumberMarks marks_;
  char separator_;
};

}  // namespace velmora
