// The sheets of an Excel workbook (Office Open XML, ECMA-376).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/TableRows.h"

namespace velmora {

struct SheetRead {
  std::vector<TableRow> rows;  // those with content, but for those that begin with #
  std::string name;
  std::vector<std::string> others;  // the other sheets that are shown
};

/// Reads the first sheet that is shown, or the one with this name. A formula is the value that was
/// last computed. Throws a `TableFault` where the bytes are no whole workbook, hold no such sheet,
/// or unpack to more than `limit` bytes.
SheetRead ReadSheet(std::string_view bytes, const std::optional<std::string>& name,
                    std::size_t limit);

/// The table of a sheet's rows, the header found as in a text. Throws a `TableFault`.
TableRows TableOf(std::vector<TableRow> rows, const HeaderSigns& signs);

}  // namespace velmora
