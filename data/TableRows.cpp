#include "data/TableRows.h"

#include <algorithm>

namespace velmora {
namespace {

bool IsEmpty(const std::string& cell) {
  return cell.empty();
}

}  // namespace

const std::string& CellOf(const TableRow& row, std::size_t column) {
  static const std::string kAbsent;
  return column < row.cells.size() ? row.cells[column] : kAbsent;
}

CellKind KindOf(const TableRow& row, std::size_t column) {
  return column < row.kinds.size() ? row.kinds[column] : CellKind::Text;
}

bool IsBlank(const TableRow& row) {
  return std::all_of(row.cells.begin(), row.cells.end(), IsEmpty);
}

const std::string& FirstCell(const TableRow& row) {
  return *std::find_if_not(row.cells.begin(), row.cells.end(), IsEmpty);
}

TableFault FaultAt(const TableRows& table, std::size_t row, std::size_t column, TextId text,
                   std::vector<std::string> more) {
  more.insert(more.begin(), OnOneLine(CellOf(table.rows[row], column)));
  return {text, std::move(more), table.rows[row].line, static_cast<int>(row) + 1,
          OnOneLine(table.header.cells[column])};
}

void TableSize::Add(const TableRow& row) {
  cells_ += row.cells.size();
  if (row.line > kMostTableLines)
    throw TableFault{TextId::TooManyLines, {std::to_string(kMostTableLines)}, row.line};
  if (row.cells.size() > kMostTableColumns)
    throw TableFault{TextId::TooManyColumns, {std::to_string(kMostTableColumns)}, row.line};
  if (cells_ > kMostTableCells)
    throw TableFault{TextId::TooManyCellsInTable, {std::to_string(kMostTableCells)}, row.line};
}

}  // namespace velmora
