// A spreadsheet's CSV text as rows of cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/Wording.h"

namespace velmora::cli {

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
/// are passed over, rows of empty cells too. Throws a `Failure` (File) that names `path` and the
/// line.
CsvTable ParseCsv(std::string_view text, const std::string& path, const Wording& say);

}  // namespace velmora::cli
