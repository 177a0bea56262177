// What comes from the clipboard into the entry grid: a block of cells, or a table with headers.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "data/GridText.h"
#include "language/Message.h"

namespace velmora {

/// Cells that belong together, and the grid's column at which they begin; none: the current one.
struct PastedPart {
  std::optional<int> column;
  GridBlock block;
};

struct PastedTable {
  std::vector<PastedPart> parts;
  bool named = false;                 // by headers, in columns of the grid
  std::optional<Message> question{};  // to be agreed to before anything is pasted
  std::optional<Message> remark{};    // to be told of what was read
};

/// Cuts clipboard text into cells: at TABs, else at semicolons, else at commas where these cannot
/// be decimal marks. Rows are those of `ParseBlock`.
GridBlock SplitPasted(std::string_view text);

/// Reads clipboard text. Where a first row names columns of the grid, they go where their names
/// say, in any order; with all four of them units are converted as in a table's file. A first row
/// of other words is asked about. `separator`: the locale's decimal separator.
PastedTable ReadPasted(std::string_view text, char separator);

/// Whether what a block, pasted from `column` on, puts under Cx falls by more than half while what
/// it puts under Cs rises: these two may have been exchanged.
bool LooksExchanged(const GridBlock& block, int column);
/// Exchanges the two.
void Exchange(GridBlock& block, int column);
Message AskToExchange();

}  // namespace velmora
