// The entry grid: a table with one editor laid over the current cell.
#pragma once

#include <QTableView>
#include <functional>
#include <utility>

#include "app/experiments/ExperimentGridModel.h"
#include "data/PastedTable.h"
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
  void SetLanguage(Language language);
  /// By which a yes or no is asked before a pasted table changes anything.
  void SetAsk(std::function<bool(const Message&)> ask) { ask_ = std::move(ask); }
  /// Makes the cell the current one, scrolls to it and gives the grid the focus.
  void GoTo(GridCell cell);

  /// Puts the selected cells on the clipboard; pastes it from the current cell on; empties the
  /// selected cells.
  void Copiar();
  void Colar();
  void Apagar();
  void Recortar();
  void InsertRow();
  void DeleteRows();

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
  void contextMenuEvent(QContextMenuEvent* event) override;
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
  /// To the next row, in the column where typing of this one began; adds a row below the last.
  void Enter();
  /// To the next cell (or back, for -1), row by row. Behind the last one a row is added, unless the
  /// last is empty: then the grid loses the focus.
  void Tab(int step);
  void AddRow();
  QItemSelection Selected() const;
  /// The first of the selected cells.
  GridCell Start() const;
  /// The selected cells about the current one, or that alone.
  QItemSelectionRange Range() const;
  void SelectAlone(int row, int column);
  bool Agreed(const Message& question) const { return ask_ && ask_(question); }
  /// Whether all parts fit from `at` on; the first that does not is told.
  bool Fits(const PastedTable& pasted, GridCell at);

  ExperimentGridModel model_;
  QLineEdit* editor_;  // txtFlexGrid
  QString oldText_;    // of the cell, before it was edited
  char separator_;
  std::function<bool(const Message&)> ask_;
  Language language_ = Language::English;
  GridCell typed_{-1, 0};  // the cell where typing of its row began
  bool handing_ = false;   // a key is being handed to the editor
};

}  // namespace velmora
