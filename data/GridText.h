// The texts of the entry grid: blocks that are copied and pasted, cells as numbers, and points.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/Experiment.h"

namespace velmora {

inline constexpr int kGridColumns = 4;
inline constexpr std::array<std::string_view, kGridColumns> kGridHeaders = {"t (h)", "Cs (g/L)",
                                                                            "Cx (g/L)", "Cp (g/L)"};

/// One point as typed: time, Cs, Cx, Cp.
using GridRow = std::array<std::string, kGridColumns>;
/// Cells row by row; the rows need not be of one length.
using GridBlock = std::vector<std::vector<std::string>>;

/// A cell; both count from 0.
struct GridCell {
  int row = 0;
  int column = 0;

  friend bool operator==(const GridCell&, const GridCell&) = default;
};

/// Cuts clipboard text into cells at TABs and into rows at CR LF, LF or CR. A line break at the end
/// adds no row; an empty text has none.
GridBlock ParseBlock(std::string_view text);

/// The block as clipboard text: TAB between cells, CR LF behind every row.
std::string BlockText(const GridBlock& block);

/// The number in a cell, with a decimal point or a decimal comma. Nothing where the cell is empty,
/// holds something else, has thousands separators, or its number is out of range.
std::optional<double> CellNumber(std::string_view text);
/// Whether no double holds the number in a cell.
bool IsCellOutOfRange(std::string_view text);

bool IsEmpty(const GridRow& row);

/// The points that the rows state, or the first cell, row by row, that is no number.
struct GridPoints {
  Experiment points;  // the four arrays alone; with a bad cell they are cut short
  std::optional<GridCell> badCell;
};

/// Reads the rows down to the last that holds any text: empty rows behind it are no points. An
/// empty cell above that is no number, never 0.
GridPoints ReadPoints(std::span<const GridRow> rows);

/// The rows that show an experiment's points, with the locale's `separator`.
std::vector<GridRow> RowsOf(const Experiment& experiment, char separator);

}  // namespace velmora
