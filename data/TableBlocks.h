// A table of several experiments that stand below each other or side by side, each with a header of
// its own.
#pragma once

#include <string>
#include <vector>

#include "data/TableRows.h"

namespace velmora {

struct TableBlock {
  TableRows table;
  std::string label;  // the title above the block; empty where it has none
};

/// The blocks of a table: one where its header names each quantity but once and comes but once.
std::vector<TableBlock> BlocksOf(TableRows table);

}  // namespace velmora
