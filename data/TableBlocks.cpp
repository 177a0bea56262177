#include "data/TableBlocks.h"

#include <algorithm>

#include "data/TableColumns.h"
#include "data/TableNumbers.h"

namespace velmora {
namespace {

/// Whether a row below the header is a header again.
bool IsHeader(const TableRow& row) {
  static const ByQuantity<std::optional<std::string>> kNoneGiven;
  return QuantityHeader(kNoneGiven).Named(row.cells) >= static_cast<int>(kMeasured.size());
}

/// A line with one text that is no number may be the title of what stands below it.
bool IsTitle(const TableRow& row) {
  const auto filled = std::count_if(row.cells.begin(), row.cells.end(),
                                    [](const std::string& cell) { return !cell.empty(); });
  return filled == 1 && !BeginsLikeANumber(FirstCell(row));
}

/// The last row's text, taken off the rows where it is a title.
std::string TakeTitle(std::vector<TableRow>& rows) {
  if (rows.empty() || !IsTitle(rows.back())) return "";
  std::string title = FirstCell(rows.back());
  rows.pop_back();
  return title;
}

std::vector<TableBlock> StackedBlocks(TableRows table) {
  std::vector<TableBlock> blocks;
  std::vector<TableRow> rows = std::move(table.rows);
  table.rows.clear();
  if (std::none_of(rows.begin(), rows.end(), IsHeader)) {
    table.rows = std::move(rows);
    blocks.push_back({std::move(table), ""});
    return blocks;
  }
  const std::string first = TakeTitle(table.titles);
  blocks.push_back({std::move(table), first});
  for (TableRow& row : rows) {
    if (!IsHeader(row)) {
      blocks.back().table.rows.push_back(std::move(row));
      continue;
    }
    std::string title = TakeTitle(blocks.back().table.rows);
    const char separator = blocks.back().table.separator;
    blocks.push_back({{{}, std::move(row), {}, separator}, std::move(title)});
  }
  return blocks;
}

/// The columns at which blocks side by side begin; empty where there is but one.
std::vector<std::size_t> FirstColumns(const TableRow& header) {
  std::vector<std::size_t> times = ColumnsNaming(header, Quantity::Time);
  if (times.size() < 2) return {};
  for (const Quantity quantity : kConcentrations) {
    const std::vector<std::size_t> columns = ColumnsNaming(header, quantity);
    if (columns.size() != times.size()) return {};
    for (std::size_t i = 0; i < times.size(); ++i) {
      const bool inBlock =
          columns[i] > times[i] && (i + 1 == times.size() || columns[i] < times[i + 1]);
      if (!inBlock) return {};
    }
  }
  return times;
}

/// The cells of the columns from `first` to before `end`.
TableRow Part(const TableRow& row, std::size_t first, std::size_t end) {
  TableRow part{row.line, {}};
  for (std::size_t column = first; column < std::min(end, row.cells.size()); ++column) {
    part.cells.push_back(row.cells[column]);
    part.kinds.push_back(KindOf(row, column));
  }
  return part;
}

TableBlock BlockAt(const TableRows& table, std::size_t first, std::size_t end) {
  TableBlock block{{{}, Part(table.header, first, end), {}, table.separator}, ""};
  for (const TableRow& row : table.rows) {
    TableRow part = Part(row, first, end);
    if (!IsBlank(part)) block.table.rows.push_back(std::move(part));
  }
  if (table.titles.empty()) return block;
  const TableRow title = Part(table.titles.back(), first, end);
  if (!IsBlank(title)) block.label = FirstCell(title);
  return block;
}

std::vector<TableBlock> BlocksAbreast(TableRows table) {
  std::vector<TableBlock> blocks;
  const std::vector<std::size_t> firsts = FirstColumns(table.header);
  for (std::size_t i = 0; i < firsts.size(); ++i)
    blocks.push_back(
        BlockAt(table, firsts[i], i + 1 < firsts.size() ? firsts[i + 1] : kMostTableColumns));
  if (blocks.empty()) return blocks;
  const bool labelled = std::any_of(blocks.begin(), blocks.end(),
                                    [](const TableBlock& block) { return !block.label.empty(); });
  if (labelled) table.titles.pop_back();
  blocks.front().table.titles = std::move(table.titles);
  return blocks;
}

}  // namespace

std::vector<TableBlock> BlocksOf(TableRows table) {
  std::vector<TableBlock> abreast = BlocksAbreast(table);
  return abreast.empty() ? StackedBlocks(std::move(table)) : abreast;
}

}  // namespace velmora
