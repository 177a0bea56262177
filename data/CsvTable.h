// A spreadsheet's CSV text as rows of cells.
#pragma once

#include <string_view>

#include "data/TableRows.h"

namespace velmora {

/// The table of a UTF-8 text. The header is the line of the first ones that names most columns, and
/// the first line where none names any. Cells are separated by what a first line "sep=;" says, else
/// by whichever of TAB, semicolon and comma the header line has most of; a cell in double quotes
/// may hold separators, line breaks and doubled quotes. Lines that begin with # and lines without
/// content are passed over, rows of empty cells too. Throws a `TableFault`.
TableRows ParseCsv(std::string_view text, const HeaderSigns& signs);

}  // namespace velmora
