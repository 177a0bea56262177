#include "data/GridText.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr char kCellEnd = '\t';
constexpr std::string_view kRowEnds = "\r\n";

/// Takes the first row off the text.
std::string_view TakeRow(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of(kRowEnds), text.size());
  const std::string_view row = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with(kRowEnds)) text.remove_prefix(1);
  if (!text.empty()) text.remove_prefix(1);
  return row;
}

std::vector<std::string> CellsOf(std::string_view row) {
  std::vector<std::string> cells;
  cells.reserve(kGridColumns);
  while (true) {
    const std::size_t end = row.find(kCellEnd);
    cells.emplace_back(row.substr(0, end));
    if (end == std::string_view::npos) return cells;
    row.remove_prefix(end + 1);
  }
}

/// A cell's text with a point for its decimal mark; what has two marks is no number either way.
std::string WithPoint(std::string_view cell) {
  std::string number(cell);
  std::replace(number.begin(), number.end(), ',', '.');
  return number;
}

}  // namespace

GridBlock ParseBlock(std::string_view text) {
  GridBlock block;
  while (!text.empty()) block.push_back(CellsOf(TakeRow(text)));
  return block;
}

std::string BlockText(const GridBlock& block) {
  std::string text;
  for (const std::vector<std::string>& row : block) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (column > 0) text += kCellEnd;
      text += row[column];
    }
    text += kRowEnds;
  }
  return text;
}

std::optional<double> CellNumber(std::string_view text) {
  return ParseNumber(WithPoint(text), '.');
}

bool IsCellOutOfRange(std::string_view text) {
  return IsOutOfRange(WithPoint(text), '.');
}

bool IsEmpty(const GridRow& row) {
  return std::all_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
}

GridPoints ReadPoints(std::span<const GridRow> rows) {
  while (!rows.empty() && IsEmpty(rows.back())) rows = rows.first(rows.size() - 1);
  assert(rows.size() <= static_cast<std::size_t>(kMostPoints));
  GridPoints read;
  Experiment& points = read.points;
  const std::array columns = {&points.time, &points.Cs, &points.Cx, &points.Cp};
  for (std::vector<double>* column : columns) column->reserve(rows.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
      const std::optional<double> number = CellNumber(rows[row][column]);
      if (!number) {
        read.badCell = GridCell{static_cast<int>(row), static_cast<int>(column)};
        return read;
      }
      columns[column]->push_back(*number);
    }
  }
  return read;
}

std::vector<GridRow> RowsOf(const Experiment& experiment, char separator) {
  std::vector<GridRow> rows(experiment.time.size());
  for (std::size_t k = 0; k < rows.size(); ++k)
    rows[k] = {PlainText(experiment.time.at(k), separator),
               PlainText(experiment.Cs.at(k), separator), PlainText(experiment.Cx.at(k), separator),
               PlainText(experiment.Cp.at(k), separator)};
  return rows;
}

}  // namespace velmora
