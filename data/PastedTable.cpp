#include "data/PastedTable.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "data/MeasuredTable.h"
#include "data/TableColumns.h"

namespace velmora {
namespace {

constexpr std::array kInGrid = {Quantity::Time, Quantity::Substrate, Quantity::Cells,
                                Quantity::Product};
constexpr int kSubstrateColumn = 1, kCellsColumn = 2;

std::vector<std::string> CutAt(char separator, const std::string& row) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : row) {
    if (c == '"')
      quoted = !quoted;
    else if (c == separator && !quoted)
      cells.emplace_back();
    else
      cells.back() += c;
  }
  return cells;
}

/// The cell's text without the quotes that some programs put around it.
std::string Unquoted(const std::string& cell) {
  const bool quoted = cell.size() > 1 && cell.front() == '"' && cell.back() == '"';
  return quoted ? cell.substr(1, cell.size() - 2) : cell;
}

bool HasLetter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 128;
  });
}

/// Whether rows of one cell each are cut at commas: as many in each, and more than a decimal number
/// has, or beside a point, or below a header.
bool CommasSeparate(const GridBlock& block) {
  const auto commas = [](const std::string& row) {
    return std::count(row.begin(), row.end(), ',');
  };
  const auto most = commas(block.front().front());
  if (most == 0) return false;
  bool beside = HasLetter(block.front().front());
  for (const auto& row : block) {
    if (commas(row.front()) != most) return false;
    beside = beside || row.front().find('.') != std::string::npos;
  }
  return most > 1 || beside;
}

bool IsHeader(const GridBlock& block) {
  const auto& first = block.front();
  const auto isName = [](const std::string& cell) { return HasLetter(cell) && !CellNumber(cell); };
  const auto isNumber = [](const std::string& cell) { return CellNumber(cell).has_value(); };
  return block.size() > 1 && std::any_of(first.begin(), first.end(), isName) &&
         std::none_of(first.begin(), first.end(), isNumber);
}

GridBlock ColumnOf(const GridBlock& block, std::size_t column) {
  GridBlock cells;
  for (std::size_t row = 1; row < block.size(); ++row)
    cells.push_back({column < block[row].size() ? block[row][column] : ""});
  return cells;
}

/// The columns that headers name; one that several name is named by none.
std::vector<PastedPart> ByName(const GridBlock& block) {
  const TableRow header{1, block.front()};
  std::vector<PastedPart> parts;
  for (std::size_t i = 0; i < kInGrid.size(); ++i)
    if (const auto columns = ColumnsNaming(header, kInGrid[i]); columns.size() == 1)
      parts.push_back({static_cast<int>(i), ColumnOf(block, columns.front())});
  return parts;
}

/// The text as a table of one experiment, with units of its own.
std::optional<PastedTable> AsTable(std::string_view text, char separator) {
  const TableRead table = ReadTable(text, {});
  if (table.fault || table.lists.Count() != 1) return std::nullopt;
  PastedTable pasted;
  pasted.named = true;
  pasted.parts.push_back({0, {}});
  for (const GridRow& row : RowsOf(table.lists.At(1), separator))
    pasted.parts.front().block.emplace_back(row.begin(), row.end());
  std::vector<Piece> told;
  for (const TableFault& remark : table.remarks) {
    if (!told.empty()) told.emplace_back("\n");
    told.emplace_back(remark.text, remark.arguments);
  }
  if (!told.empty()) pasted.remark = Attention(std::move(told));
  return pasted;
}

Message AskToDrop(const GridBlock& block) {
  const auto& first = block.front();
  const auto name = std::find_if(first.begin(), first.end(), HasLetter);
  std::string order;
  for (const std::string_view header : kGridHeaders)
    order += (order.empty() ? "" : ", ") + std::string(header);
  return Attention({{TextId::AskToDropHeader, {*name, order}}}, Icon::Question);
}

std::optional<double> NumberAt(const std::vector<std::string>& row, int column) {
  if (column < 0 || column >= static_cast<int>(row.size())) return std::nullopt;
  return CellNumber(row[static_cast<std::size_t>(column)]);
}

}  // namespace

GridBlock SplitPasted(std::string_view text) {
  GridBlock block = ParseBlock(text);
  if (block.empty() || text.find('\t') != std::string_view::npos) {
    for (auto& row : block) std::transform(row.begin(), row.end(), row.begin(), Unquoted);
    return block;
  }
  char separator = ';';
  if (text.find(';') == std::string_view::npos) {
    if (!CommasSeparate(block)) return block;
    separator = ',';
  }
  for (auto& row : block) row = CutAt(separator, row.front());
  return block;
}

PastedTable ReadPasted(std::string_view text, char separator) {
  GridBlock block = SplitPasted(text);
  if (block.empty()) return {};
  PastedTable pasted;
  if (!IsHeader(block)) {
    pasted.parts.push_back({std::nullopt, std::move(block)});
    return pasted;
  }
  if (std::vector<PastedPart> parts = ByName(block); !parts.empty()) {
    const bool whole = parts.size() == kInGrid.size();
    std::optional<PastedTable> table = whole ? AsTable(text, separator) : std::nullopt;
    return table ? *std::move(table) : PastedTable{std::move(parts), true};
  }
  pasted.question = AskToDrop(block);
  block.erase(block.begin());
  pasted.parts.push_back({std::nullopt, std::move(block)});
  return pasted;
}

bool LooksExchanged(const GridBlock& block, int column) {
  if (block.size() < 3) return false;
  const auto ends = [&](int of) {
    return std::pair(NumberAt(block.front(), of - column), NumberAt(block.back(), of - column));
  };
  const auto [firstCx, lastCx] = ends(kCellsColumn);
  const auto [firstCs, lastCs] = ends(kSubstrateColumn);
  if (!firstCx || !lastCx || !firstCs || !lastCs) return false;
  if (!(*lastCx<*firstCx&& * lastCs> * firstCs)) return false;
  // Either change alone may be a death phase or scatter.
  return *lastCx < 0.5 * *firstCx || *lastCs > 1.5 * *firstCs;
}

void Exchange(GridBlock& block, int column) {
  for (std::vector<std::string>& row : block)
    if (static_cast<int>(row.size()) > kCellsColumn - column)
      std::swap(row[static_cast<std::size_t>(kSubstrateColumn - column)],
                row[static_cast<std::size_t>(kCellsColumn - column)]);
}

Message AskToExchange() {
  return Attention({TextId::AskToExchange}, Icon::Question);
}

}  // namespace velmora
