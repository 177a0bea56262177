// A spreadsheet's CSV text as rows of cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "language/Texts.h"

namespace velmora {

/// Why a table cannot be read: thrown while it is, and worded where it is told.
struct TableFault {
  TextId text;
  std::vector<std::string> arguments;  // of the text
  int line = 0;                        // of the file, from 1; 0 where no line is concerned
  int row = 0;           // of the data, from 1, with its column: where a cell is meant
  std::string column{};  // its header
};

/// The fault on one line, UTF-8, without the file's name and line.
std::string FaultReason(const TableFault& fault, Language language);

struct CsvRow {
  int line = 0;                    // of the file, from 1
  std::vector<std::string> cells;  // without blanks around them and without their quotes
};

struct CsvTable {
  CsvRow header;
  std::vector<CsvRow> rows;
};

/// The table of a UTF-8 text, with or without byte order mark. Cells are separated by whichever of
/// TAB, semicolon and comma the header line has most of; a cell in double quotes may hold
/// separators, line breaks and doubled quotes. Lines that begin with # and lines without content
/// are passed over, rows of empty cells too. Throws a `TableFault`.
CsvTable ParseCsv(std::string_view text);

}  // namespace velmora
