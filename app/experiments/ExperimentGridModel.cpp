#include "app/experiments/ExperimentGridModel.h"

#include <QColor>
#include <algorithm>
#include <utility>

#include "app/widgets/Icons.h"
#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {

const QColor kNoNumber(0xD0, 0x10, 0x10);

}  // namespace

int ExperimentGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_;
}

int ExperimentGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kGridColumns;
}

QVariant ExperimentGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::string& text = At(index.row(), index.column());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return QString::fromStdString(text);
    case Qt::ToolTipRole:  // a column may be too narrow for all digits
      if (const auto remark = Remark(index))
        return QString::fromStdString(text) + u'\n' + Caption(*remark, language_);
      return QString::fromStdString(text);
    case Qt::DecorationRole:
      return Remark(index) ? QVariant(CalmMark()) : QVariant();
    case Qt::ForegroundRole:
      return text.empty() || CellNumber(text) ? QVariant() : QVariant(kNoNumber);
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    default:
      return {};
  }
}

std::optional<TextId> ExperimentGridModel::Remark(const QModelIndex& cell) const {
  const std::optional<double> number = CellNumber(At(cell.row(), cell.column()));
  if (!number) return std::nullopt;
  if (*number < 0) return TextId::NegativeValue;
  if (cell.column() > 0 || cell.row() == 0) return std::nullopt;
  const std::optional<double> above = CellNumber(At(cell.row() - 1, 0));
  return above && *number <= *above ? std::optional(TextId::TimeNotLater) : std::nullopt;
}

QVariant ExperimentGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignCenter);
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  const std::string_view header = kGridHeaders.at(static_cast<std::size_t>(section));
  return QString::fromUtf8(header.data(), static_cast<qsizetype>(header.size()));
}

std::span<const GridRow> ExperimentGridModel::Rows() const {
  return std::span(rows_).first(static_cast<std::size_t>(shown_));
}

void ExperimentGridModel::SetRows(std::vector<GridRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  shown_ = static_cast<int>(rows_.size());
  endResetModel();
}

void ExperimentGridModel::SetRowCount(int count) {
  const auto needed = static_cast<std::size_t>(count);
  if (needed > rows_.size()) rows_.resize(needed);
  if (count > shown_) {
    beginInsertRows({}, shown_, count - 1);
    shown_ = count;
    endInsertRows();
  } else if (count < shown_) {
    beginRemoveRows({}, count, shown_ - 1);
    shown_ = count;
    endRemoveRows();
  }
}

QString ExperimentGridModel::Text(const QModelIndex& cell) const {
  return QString::fromStdString(At(cell.row(), cell.column()));
}

void ExperimentGridModel::SetText(const QModelIndex& cell, const QString& text) {
  At(cell.row(), cell.column()) = text.toStdString();
  TellChanged(cell, cell);
}

void ExperimentGridModel::InsertRow(int row) {
  beginInsertRows({}, row, row);
  rows_.emplace(rows_.begin() + row);
  ++shown_;
  endInsertRows();
}

void ExperimentGridModel::DeleteRows(int row, int count) {
  beginRemoveRows({}, row, row + count - 1);
  rows_.erase(rows_.begin() + row, rows_.begin() + row + count);
  shown_ -= count;
  endRemoveRows();
}

GridBlock ExperimentGridModel::Copied(const QItemSelection& selection) const {
  if (selection.isEmpty()) return {};
  int top = rowCount(), bottom = -1, left = kGridColumns, right = -1;
  for (const QItemSelectionRange& range : selection) {
    top = std::min(top, range.top());
    bottom = std::max(bottom, range.bottom());
    left = std::min(left, range.left());
    right = std::max(right, range.right());
  }
  GridBlock block;
  for (int row = top; row <= bottom; ++row) {
    const GridRow& cells = rows_[static_cast<std::size_t>(row)];
    block.emplace_back(cells.begin() + left, cells.begin() + right + 1);
  }
  return block;
}

void ExperimentGridModel::Clear(const QItemSelection& selection) {
  for (const QItemSelectionRange& range : selection) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      for (int column = range.left(); column <= range.right(); ++column) At(row, column).clear();
    TellChanged(range.topLeft(), range.bottomRight());
  }
}

void ExperimentGridModel::Paste(const GridBlock& block, GridCell at) {
  if (block.empty()) return;
  const int end = at.row + static_cast<int>(block.size());
  if (end > shown_) SetRowCount(end);
  int row = at.row;
  for (const std::vector<std::string>& cells : block) {
    const int room = std::min(kGridColumns - at.column, static_cast<int>(cells.size()));
    for (int i = 0; i < room; ++i) At(row, at.column + i) = cells[static_cast<std::size_t>(i)];
    ++row;
  }
  TellChanged(index(at.row, at.column), index(end - 1, kGridColumns - 1));
}

void ExperimentGridModel::TellChanged(const QModelIndex& first, const QModelIndex& last) {
  const int below = std::min(last.row() + 1, shown_ - 1);
  emit dataChanged(first, index(below, last.column()));
}

std::string& ExperimentGridModel::At(int row, int column) {
  return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

const std::string& ExperimentGridModel::At(int row, int column) const {
  return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

}  // namespace velmora
