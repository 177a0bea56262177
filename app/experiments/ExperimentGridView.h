// The entry grid: a table with one editor laid over the current cell.
#pragma once

#include <QTableView>

#include "app/experiments/ExperimentGridModel.h"
#include "language/Message.h"

class QLineEdit;

namespace velmora {

/// Typing into a cell opens the editor on it at once; the cell follows the editor's text key by
/// key.
class ExperimentGridView : public QTableView {
  Q_OBJECT

 public:
  /// `separator` is the locale's decimal separator, '.' or ','.
  explicit ExperimentGridView(char separator, QWidget* parent = nullptr);

  std::span<const GridRow> Rows() const { return model_.Rows(); }
  void SetRows(std::vector<GridRow> rows);
  void SetRowCount(int count);
  /// Makes the cell the current one, scrolls to it and gives the grid the focus.
  void GoTo(GridCell cell);

  /// Puts the selected cells on the clipboard; pastes it from the current cell on; empties the
  /// selected cells.
  void Copiar();
  void Colar();
  void Apagar();

 signals:
  /// The user changed cells or the number of rows; `cell`, from 1, where one is being typed, else
  /// 0.
  void Edited(int cell);
  /// A pasted block was refused; nothing changed.
  void Refused(const velmora::Message& message);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void updateGeometries() override;

 private:
  void LayOut();
  void Wire();

  bool Editing() const;
  /// Opens the editor with the current cell's text.
  void StartEditing();
  void EndEditing();
  void GiveBackText();
  void PlaceEditor();
  void TakeText(const QString& text);

  /// Carries out a clipboard key or Delete; false where `event` is none.
  bool DoCommand(const QKeyEvent& event);
  /// Carries out a key that leaves the current cell; false where `event` is none.
  bool DoMove(const QKeyEvent& event);
  bool EditorKey(QKeyEvent& event);
  void HandToEditor(QKeyEvent& event);
  void Move(int rows, int columns);
  /// One cell down; adds a row below the last.
  void Enter();
  /// To the next cell (or back, for -1), row by row; past the last one the grid loses the focus.
  void Tab(int step);
  QItemSelection Selected() const;

  ExperimentGridModel model_;
  QLineEdit* editor_;  // txtFlexGrid
  QString oldText_;    // of the cell, before it was edited
  char separator_;
  bool handing_ = false;  // a key is being handed to the editor
};

}  // namespace velmora
