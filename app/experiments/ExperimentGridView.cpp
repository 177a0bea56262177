#include "app/experiments/ExperimentGridView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <algorithm>
#include <optional>
#include <utility>

#include "app/widgets/Idiomas.h"
#include "data/ExperimentEntry.h"

namespace velmora {
namespace {

constexpr TextId kCopy{123};     // the caption of the charts' menu
constexpr int kCellPadding = 8;  // px, above and below a row's text together

constexpr QKeySequence::StandardKey kCommands[] = {QKeySequence::Copy, QKeySequence::Cut,
                                                   QKeySequence::Paste, QKeySequence::Delete};

bool IsCommand(const QKeyEvent& event) {
  return std::any_of(std::begin(kCommands), std::end(kCommands),
                     [&event](QKeySequence::StandardKey key) { return event.matches(key); });
}

bool IsTab(const QKeyEvent& event) {
  const bool other = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  return !other && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

bool TypesText(const QKeyEvent& event) {
  const bool command = event.modifiers().testFlag(Qt::ControlModifier) &&
                       !event.modifiers().testFlag(Qt::AltModifier);
  return !command && !event.text().isEmpty() && event.text().front().isPrint();
}

/// Whether the focus went to another box, and not to a menu or another window.
bool StaysInWindow(const QFocusEvent& event) {
  return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

std::string ClipboardText() {
  return QApplication::clipboard()->text().toStdString();
}

bool IsSingleCell(const GridBlock& block) {
  return block.empty() || (block.size() == 1 && block.front().size() == 1);
}

}  // namespace

ExperimentGridView::ExperimentGridView(char separator, QWidget* parent)
    : QTableView(parent), editor_(new QLineEdit(viewport())), separator_(separator) {
  setObjectName(QStringLiteral("MSFlexGrid1"));
  editor_->setObjectName(QStringLiteral("txtFlexGrid"));
  setModel(&model_);
  LayOut();
  Wire();
}

void ExperimentGridView::LayOut() {
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setWordWrap(false);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kCellPadding);
  editor_->setFrame(false);
  editor_->setAlignment(Qt::AlignRight);
  editor_->hide();
}

void ExperimentGridView::Wire() {
  editor_->installEventFilter(this);
  connect(editor_, &QLineEdit::textEdited, this, &ExperimentGridView::TakeText);
}

void ExperimentGridView::SetRows(std::vector<GridRow> rows) {
  EndEditing();
  model_.SetRows(std::move(rows));
  typed_ = {-1, 0};
  setCurrentIndex(model_.index(0, 0));
}

void ExperimentGridView::SetRowCount(int count) {
  EndEditing();
  model_.SetRowCount(count);
  if (!currentIndex().isValid()) setCurrentIndex(model_.index(0, 0));
}

void ExperimentGridView::GoTo(GridCell cell) {
  const QModelIndex index = model_.index(cell.row, cell.column);
  setCurrentIndex(index);
  scrollTo(index);
  setFocus();
}

QItemSelection ExperimentGridView::Selected() const {
  if (!selectionModel()->hasSelection() && currentIndex().isValid())
    return {currentIndex(), currentIndex()};
  return selectionModel()->selection();
}

void ExperimentGridView::Copiar() {
  const std::string text = BlockText(model_.Copied(Selected()));
  if (!text.empty()) QApplication::clipboard()->setText(QString::fromStdString(text));
}

void ExperimentGridView::Colar() {
  EndEditing();
  PastedTable pasted = ReadPasted(ClipboardText(), separator_);
  const GridCell at = Start();
  if (pasted.parts.empty() || !Fits(pasted, at)) return;
  if (pasted.question && !Agreed(*pasted.question)) return;
  for (PastedPart& part : pasted.parts) {
    const int column = part.column.value_or(at.column);
    if (!pasted.named && LooksExchanged(part.block, column) && Agreed(AskToExchange()))
      Exchange(part.block, column);
    model_.Paste(part.block, {at.row, column});
  }
  SelectAlone(at.row, at.column);
  emit Edited(0);
  if (pasted.remark) emit Refused(*pasted.remark);
}

bool ExperimentGridView::Fits(const PastedTable& pasted, GridCell at) {
  for (const PastedPart& part : pasted.parts) {
    const GridCell start{at.row, part.column.value_or(at.column)};
    const std::optional<Message> refusal = RefuseBlock(part.block, start);
    if (!refusal) continue;
    emit Refused(*refusal);
    return false;
  }
  return true;
}

GridCell ExperimentGridView::Start() const {
  const QItemSelectionRange range = Range();
  return {std::max(range.top(), 0), std::max(range.left(), 0)};
}

QItemSelectionRange ExperimentGridView::Range() const {
  const QModelIndex current = currentIndex();
  for (const QItemSelectionRange& range : selectionModel()->selection())
    if (range.contains(current)) return range;
  return current.isValid() ? QItemSelectionRange(current) : QItemSelectionRange();
}

// A key of a command may be held down, which would add to the selection.
void ExperimentGridView::SelectAlone(int row, int column) {
  selectionModel()->setCurrentIndex(model_.index(row, column), QItemSelectionModel::ClearAndSelect);
}

void ExperimentGridView::InsertRow() {
  EndEditing();
  const int row = Start().row;
  if (model_.rowCount() == kMostPoints) return QApplication::beep();
  model_.InsertRow(row);
  SelectAlone(row, std::max(currentIndex().column(), 0));
  emit Edited(0);
}

void ExperimentGridView::DeleteRows() {
  EndEditing();
  const QItemSelectionRange range = Range();
  if (!range.isValid()) return;
  const int row = range.top(), count = range.height();
  model_.DeleteRows(row, count);
  if (model_.rowCount() == 0) model_.SetRowCount(1);
  SelectAlone(std::min(row, model_.rowCount() - 1), 0);
  emit Edited(0);
}

void ExperimentGridView::SetLanguage(Language language) {
  language_ = language;
  model_.SetLanguage(language);
}

void ExperimentGridView::contextMenuEvent(QContextMenuEvent* event) {
  struct Item {
    TextId text;
    void (ExperimentGridView::*run)();
  };
  constexpr Item kItems[] = {{TextId::Cut, &ExperimentGridView::Recortar},
                             {kCopy, &ExperimentGridView::Copiar},
                             {TextId::Paste, &ExperimentGridView::Colar},
                             {TextId::ClearCells, &ExperimentGridView::Apagar},
                             {TextId::InsertRow, &ExperimentGridView::InsertRow},
                             {TextId::DeleteRows, &ExperimentGridView::DeleteRows},
                             {TextId::SelectAllCells, &ExperimentGridView::selectAll}};
  auto* const menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("mnuGrade"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const Item& item : kItems) {
    if (item.text == TextId::InsertRow || item.text == TextId::SelectAllCells) menu->addSeparator();
    menu->addAction(Caption(item.text, language_), this, item.run);
  }
  menu->popup(event->globalPos());
}

void ExperimentGridView::Recortar() {
  Copiar();
  Apagar();
}

void ExperimentGridView::Apagar() {
  EndEditing();
  model_.Clear(Selected());
  emit Edited(0);
}

bool ExperimentGridView::Editing() const {
  return !editor_->isHidden();
}

void ExperimentGridView::StartEditing() {
  if (model_.rowCount() == 0) Enter();
  if (!currentIndex().isValid()) return;
  scrollTo(currentIndex());
  if (typed_.row != currentIndex().row()) typed_ = {currentIndex().row(), currentIndex().column()};
  oldText_ = model_.Text(currentIndex());
  editor_->setText(oldText_);
  PlaceEditor();
  editor_->show();
  editor_->setFocus();
}

void ExperimentGridView::EndEditing() {
  if (!Editing()) return;
  const bool focused = editor_->hasFocus();
  editor_->hide();
  if (focused) setFocus();
}

void ExperimentGridView::GiveBackText() {
  model_.SetText(currentIndex(), oldText_);
  EndEditing();
  emit Edited(0);
}

void ExperimentGridView::PlaceEditor() {
  editor_->setGeometry(visualRect(currentIndex()));
}

void ExperimentGridView::TakeText(const QString& text) {
  if (!currentIndex().isValid()) return;
  if (text.startsWith(QLatin1Char(separator_))) {
    const int cursor = editor_->cursorPosition();
    editor_->setText(QLatin1Char('0') + text);
    editor_->setCursorPosition(cursor + 1);
  }
  model_.SetText(currentIndex(), editor_->text());
  emit Edited(currentIndex().row() * kGridColumns + currentIndex().column() + 1);
}

bool ExperimentGridView::event(QEvent* event) {
  // The menus have shortcuts of the same keys; on the grid they are the grid's.
  if (event->type() == QEvent::ShortcutOverride && IsCommand(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  // Left alone, the keys of Tab would go to the next control before they come to the cells.
  if (event->type() == QEvent::KeyPress && IsTab(*static_cast<QKeyEvent*>(event)))
    return DoMove(*static_cast<QKeyEvent*>(event));
  return QTableView::event(event);
}

bool ExperimentGridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != editor_) return QTableView::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return EditorKey(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::FocusOut && StaysInWindow(*static_cast<QFocusEvent*>(event)))
    EndEditing();
  return false;
}

bool ExperimentGridView::EditorKey(QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape) {
    GiveBackText();
    return true;
  }
  // A block goes into the grid; a single text into the editor, at its cursor.
  if (event.matches(QKeySequence::Paste) && !IsSingleCell(SplitPasted(ClipboardText()))) {
    Colar();
    return true;
  }
  return DoMove(event);
}

void ExperimentGridView::keyPressEvent(QKeyEvent* event) {
  if (Editing()) return HandToEditor(*event);
  if (DoCommand(*event)) return;
  const bool selecting = event->modifiers().testFlag(Qt::ShiftModifier) ||
                         event->modifiers().testFlag(Qt::ControlModifier);
  if (!selecting && DoMove(*event)) return;
  if (event->key() == Qt::Key_F2) {
    StartEditing();
  } else if (TypesText(*event) || event->key() == Qt::Key_Backspace) {
    StartEditing();
    editor_->selectAll();
    HandToEditor(*event);
  } else {
    QTableView::keyPressEvent(event);
  }
}

void ExperimentGridView::HandToEditor(QKeyEvent& event) {
  // A key that the editor ignores comes back here, to its parent.
  event.setAccepted(!handing_);
  if (handing_) return;
  const QScopedValueRollback<bool> handing(handing_, true);
  QCoreApplication::sendEvent(editor_, &event);
}

bool ExperimentGridView::DoCommand(const QKeyEvent& event) {
  if (!IsCommand(event)) return false;
  if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut)) Copiar();
  if (event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Delete)) Apagar();
  if (event.matches(QKeySequence::Paste)) Colar();
  return true;
}

bool ExperimentGridView::DoMove(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Up:
      Move(-1, 0);
      return true;
    case Qt::Key_Down:
      Move(1, 0);
      return true;
    case Qt::Key_Left:
      Move(0, -1);
      return true;
    case Qt::Key_Right:
      Move(0, 1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Enter();
      return true;
    case Qt::Key_Tab:
      Tab(1);
      return true;
    case Qt::Key_Backtab:
      Tab(-1);
      return true;
    default:
      return false;
  }
}

void ExperimentGridView::Move(int rows, int columns) {
  EndEditing();
  const QModelIndex current = currentIndex();
  const QModelIndex next =
      model_.index(current.row() + rows, std::max(current.column(), 0) + columns);
  if (next.isValid()) setCurrentIndex(next);
}

void ExperimentGridView::Enter() {
  EndEditing();
  const QModelIndex current = currentIndex();
  const bool last = current.row() == model_.rowCount() - 1;
  if (last && model_.rowCount() == kMostPoints) return QApplication::beep();
  if (last) AddRow();
  const int back = typed_.row == current.row() ? typed_.column - current.column() : 0;
  Move(1, back);
  typed_ = {currentIndex().row(), currentIndex().column()};
}

void ExperimentGridView::AddRow() {
  model_.SetRowCount(model_.rowCount() + 1);
  emit Edited(0);
}

void ExperimentGridView::Tab(int step) {
  EndEditing();
  const QModelIndex current = currentIndex();
  const int cell = current.row() * kGridColumns + current.column() + step;
  const int rows = model_.rowCount();
  // Through a row in which nothing is typed, Tab leads out of the grid.
  if (rows > 0 && rows < kMostPoints && cell == rows * kGridColumns && typed_.row == rows - 1 &&
      !IsEmpty(Rows()[static_cast<std::size_t>(rows) - 1]))
    AddRow();
  const QModelIndex next = model_.index(cell / kGridColumns, cell % kGridColumns);
  if (next.isValid())
    setCurrentIndex(next);
  else
    focusNextPrevChild(step > 0);
}

void ExperimentGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) StartEditing();
}

void ExperimentGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  EndEditing();
  QTableView::currentChanged(current, previous);
}

void ExperimentGridView::updateGeometries() {
  QTableView::updateGeometries();
  if (Editing()) PlaceEditor();
}

}  // namespace velmora
