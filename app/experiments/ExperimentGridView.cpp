#include "app/experiments/ExperimentGridView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <algorithm>
#include <optional>
#include <utility>

#include "data/ExperimentEntry.h"

namespace velmora {
namespace {

constexpr int kCellPadding = 8;  // px, above and below a row's text together

constexpr QKeySequence::StandardKey kCommands[] = {QKeySequence::Copy, QKeySequence::Cut,
                                                   QKeySequence::Paste, QKeySequence::Delete};

bool IsCommand(const QKeyEvent& event) {
  return std::any_of(std::begin(kCommands), std::end(kCommands),
                     [&event](QKeySequence::StandardKey key) { return event.matches(key); });
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
  const GridBlock block = ParseBlock(ClipboardText());
  const QModelIndex current = currentIndex();
  const GridCell at{std::max(current.row(), 0), std::max(current.column(), 0)};
  if (const std::optional<Message> refusal = RefuseBlock(block, at)) {
    emit Refused(*refusal);
    return;
  }
  if (block.empty()) return;
  model_.Paste(block, at);
  if (!current.isValid()) setCurrentIndex(model_.index(at.row, at.column));
  emit Edited(0);
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
  if (event.matches(QKeySequence::Paste) && !IsSingleCell(ParseBlock(ClipboardText()))) {
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
  const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
  if ((tab || !selecting) && DoMove(*event)) return;
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
  const int rows = model_.rowCount();
  if (currentIndex().row() == rows - 1) {
    if (rows == kMostPoints) return QApplication::beep();
    model_.SetRowCount(rows + 1);
    emit Edited(0);
  }
  Move(1, 0);
}

void ExperimentGridView::Tab(int step) {
  EndEditing();
  const QModelIndex current = currentIndex();
  const int cell = current.row() * kGridColumns + current.column() + step;
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
