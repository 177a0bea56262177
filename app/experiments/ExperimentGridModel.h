// The texts of the entry grid as a table model.
#pragma once

#include <QAbstractTableModel>
#include <QItemSelection>
#include <optional>
#include <span>
#include <vector>

#include "data/GridText.h"
#include "language/Texts.h"

namespace velmora {

/// Holds the working copy's cells as typed. Lowering the number of rows hides the rows behind it
/// with their texts; raising it brings them back.
class ExperimentGridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  void SetLanguage(Language language) { language_ = language; }

  /// A text that is no number is red; a negative number, and a time not later than the one above,
  /// has a calm mark beside it and says so in its tool tip.
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  std::span<const GridRow> Rows() const;
  /// Replaces all cells, the hidden ones too.
  void SetRows(std::vector<GridRow> rows);
  /// Shows `count` rows, 0..kMostPoints.
  void SetRowCount(int count);

  QString Text(const QModelIndex& cell) const;
  void SetText(const QModelIndex& cell, const QString& text);
  /// Adds an empty row above `row`; removes `count` rows from there on.
  void InsertRow(int row);
  void DeleteRows(int row, int count);
  /// The cells of the rectangle around the selection.
  GridBlock Copied(const QItemSelection& selection) const;
  /// Empties the cells of the selection.
  void Clear(const QItemSelection& selection);
  /// Writes the block from `at` on to the right and down, adding rows where it runs past the last.
  /// The block must fit (`RefuseBlock`).
  void Paste(const GridBlock& block, GridCell at);

 private:
  std::optional<TextId> Remark(const QModelIndex& cell) const;
  /// Tells of cells that changed, with those below: a time's mark hangs on the time above.
  void TellChanged(const QModelIndex& first, const QModelIndex& last);
  std::string& At(int row, int column);
  const std::string& At(int row, int column) const;

  std::vector<GridRow> rows_;  // the hidden ones at the end
  int shown_ = 0;
  Language language_ = Language::English;
};

}  // namespace velmora
