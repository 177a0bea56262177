// A spreadsheet's CSV text as rows of cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/TableFault.h"

namespace velmora {

struct CsvRow {
  int line = 0;                    // of the file, from 1
  std::vector<std::string> cells;  // without blanks around them and without their quotes
};

struct CsvTable {
  std::vector<CsvRow> titles;  // what stands above the header
  CsvRow header;
  std::vector<CsvRow> rows;
  char separator = 0;  // between cells
};

/// Tells a header line from titles above it.
class HeaderSigns {
 public:
  virtual ~HeaderSigns() = default;
  /// How many of the columns looked for the cells name; 0: this is no header.
  virtual int Named(const std::vector<std::string>& cells) const = 0;
};

/// The table of a UTF-8 text. The header is the line of the first ones that names most columns, and
/// the first line where none names any. Cells are separated by what a first line "sep=;" says, else
/// by whichever of TAB, semicolon and comma the header line has most of; a cell in double quotes
/// may hold separators, line breaks and doubled quotes. Lines that begin with # and lines without
/// content are passed over, rows of empty cells too. Throws a `TableFault`.
CsvTable ParseCsv(std::string_view text, const HeaderSigns& signs);

}  // namespace velmora
