#include "data/TableNumbers.h"

#include <algorithm>

#include "language/Numbers.h"

namespace velmora {

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t") + 1);
}

TableNumbers::TableNumbers(const TableOptions& options, char separator)
    : thousands_(options.thousands), separator_(separator) {
  marks_.thousands = thousands_;
  if (thousands_ == Thousands::Point) marks_.decimal = ',';
  if (thousands_ == Thousands::Comma) marks_.decimal = '.';
  if (options.decimal) marks_.decimal = *options.decimal;
}

/// Where other marks stand between thousands, each point or comma is the decimal mark.
std::optional<char> TableNumbers::DecimalMarkIn(std::string_view number) const {
  if (thousands_ && TwoReadings(number)) return number[number.find_first_of(".,")];
  return DecimalMarkShownBy(number);
}

void TableNumbers::LearnFrom(const TableRows& table, const TableColumns& columns) {
  for (const TableRow& row : table.rows)
    for (const Quantity quantity : kMeasured) {
      const std::size_t column = columns.Of(quantity);
      if (marks_.decimal == 0 && KindOf(row, column) == CellKind::Text)
        marks_.decimal = DecimalMarkIn(Trimmed(CellOf(row, column))).value_or(0);
    }
}

/// A point alone is the decimal mark, but between semicolons, which go with decimal commas.
bool TableNumbers::HasTwoReadings(std::string_view number) const {
  const bool comma = number.find(',') != std::string_view::npos;
  return marks_.decimal == 0 && (comma || separator_ == ';') && TwoReadings(number);
}

std::string TableNumbers::PlainNumber(const TableRows& table, std::size_t row,
                                      std::size_t column) const {
  const auto fail = [&](TextId text, std::vector<std::string> more = {}) -> TableFault {
    return FaultAt(table, row, column, text, std::move(more));
  };
  const std::string_view cell = Trimmed(CellOf(table.rows[row], column));
  if (cell.empty()) throw fail(TextId::CellEmpty);
  const CellKind kind = KindOf(table.rows[row], column);
  if (kind == CellKind::Date) throw fail(TextId::CellDate);
  if (kind == CellKind::Number) return std::string(cell);
  if (HasTwoReadings(cell)) {
    const auto [decimal, whole] = TwoReadings(cell).value();
    throw fail(TextId::CellOfTwoReadings, {decimal, whole});
  }
  NumberMarks marks = marks_;
  if (marks.decimal == 0) marks.decimal = '.';
  if (const auto plain = WithPoint(cell, marks)) return *plain;
  const bool otherMark = DecimalMarkIn(cell).value_or(marks.decimal) != marks.decimal;
  throw fail(otherMark ? TextId::CellMixedMarks : TextId::CellNotANumber);
}

double TableNumbers::Value(const TableRows& table, std::size_t row, std::size_t column) const {
  const std::string plain = PlainNumber(table, row, column);
  const std::optional<double> value = ParseNumber(plain, '.');
  if (!value)
    throw FaultAt(table, row, column,
                  IsOutOfRange(plain, '.') ? TextId::FileOutOfRange : TextId::CellNotANumber);
  if (*value < 0) throw FaultAt(table, row, column, TextId::CellNegative);
  return *value;
}

}  // namespace velmora
