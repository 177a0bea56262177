// A spreadsheet's table as rows of cells, whatever kind of file it came from.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/TableFault.h"

namespace velmora {

/// What a cell is. Files of text have texts alone; a workbook knows its numbers.
enum class CellKind : char {
  Text,
  Number,  // with a decimal point, whatever marks the table's texts have
  Date     // a day or a time of day, as the number that counts its days
};

struct TableRow {
  int line = 0;                      // of the file, or the row of the sheet, from 1
  std::vector<std::string> cells;    // without blanks around them and without their quotes
  std::vector<CellKind> kinds = {};  // of the first cells; those behind are texts
};

struct TableRows {
  std::vector<TableRow> titles;  // what stands above the header
  TableRow header;
  std::vector<TableRow> rows;
  char separator = 0;  // between the cells of a text
};

/// The cell, empty where the row is shorter.
const std::string& CellOf(const TableRow& row, std::size_t column);
CellKind KindOf(const TableRow& row, std::size_t column);

/// Whether every cell is empty.
bool IsBlank(const TableRow& row);
/// The first cell that is not empty; the row must have one.
const std::string& FirstCell(const TableRow& row);

/// A fault of the cell of row `row`, from 0, of the table: with the text of the cell first.
TableFault FaultAt(const TableRows& table, std::size_t row, std::size_t column, TextId text,
                   std::vector<std::string> more = {});

/// Tells a header line from titles above it.
class HeaderSigns {
 public:
  virtual ~HeaderSigns() = default;
  /// How many of the columns looked for the cells name; 0: this is no header.
  virtual int Named(const std::vector<std::string>& cells) const = 0;
};

inline constexpr int kMostTitles = 30;  // rows above the header

/// What a table may hold; more is taken for a mistake, and would take memory without end.
inline constexpr int kMostTableLines = 1'048'576;
inline constexpr std::size_t kMostTableColumns = 16'384;
inline constexpr std::size_t kMostTableCells = 2'000'000;

/// Counts what was read, and throws a `TableFault` where it is too much.
class TableSize {
 public:
  void Add(const TableRow& row);

 private:
  std::size_t cells_ = 0;
};

}  // namespace velmora
