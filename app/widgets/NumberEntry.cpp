#include "app/widgets/NumberEntry.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QMimeData>
#include <QPalette>
#include <QToolTip>
#include <algorithm>
#include <optional>

#include "language/Numbers.h"

namespace velmora {
namespace {

/// The colours of a marked number, by its mark: on a light ground and on a dark one.
struct MarkColours {
  QColor onLight, onDark;
};
constexpr MarkColours kMarkColours[] = {{},
                                        {QColor(0x00, 0x66, 0xB3), QColor(0x6C, 0xBE, 0xFF)},
                                        {QColor(0x7A, 0x4F, 0x00), QColor(0xFF, 0xC8, 0x5A)},
                                        {QColor(0xB0, 0x1E, 0x1E), QColor(0xFF, 0x8F, 0x8F)}};
constexpr int kNarrowest = 56;  // px
constexpr int kUsualWidth = 90;

/// The box's text less what the next entry replaces.
QString KeptText(const QLineEdit& box) {
  QString text = box.text();
  if (box.hasSelectedText()) text.remove(box.selectionStart(), box.selectedText().size());
  return text;
}

/// `entry` as the key filter lets it through, key by key, into a box that holds `text`; nothing
/// where it refuses a key.
std::optional<QString> Filtered(QString text, const QString& entry, char separator) {
  QString passed;
  for (const char32_t key : entry.toUcs4()) {
    const KeyOutcome outcome = Digitacao(text.toStdString(), key, separator);
    if (outcome.key == 0) return std::nullopt;
    const QString letter = QString::fromUcs4(&outcome.key, 1);
    text += letter;
    passed += letter;
  }
  return passed;
}

/// Whether the key types a letter; editing keys, Enter, Tab and Escape type control characters.
bool TypesText(const QKeyEvent& key) {
  const bool command =
      key.modifiers().testFlag(Qt::ControlModifier) && !key.modifiers().testFlag(Qt::AltModifier);
  return !command && !key.text().isEmpty() && key.text().front().category() != QChar::Other_Control;
}

/// Where a paste command takes its text from: Ctrl+Shift+Insert means the selection.
QClipboard::Mode PasteSource(const QKeyEvent& key) {
  const bool selection = key.key() == Qt::Key_Insert &&
                         key.modifiers().testFlags(Qt::ControlModifier | Qt::ShiftModifier) &&
                         QApplication::clipboard()->supportsSelection();
  return selection ? QClipboard::Selection : QClipboard::Clipboard;
}

/// Whether the action of a box's menu is its paste command; it carries no name but its keys.
bool IsPaste(const QAction& action) {
  const QKeySequence keys(QKeySequence::Paste);
  return action.text().endsWith(QLatin1Char('\t') + keys.toString(QKeySequence::NativeText));
}

/// One box's entry on its way through the filter. A handler returns whether it has dealt with the
/// event; what it leaves, the box does by itself.
class KeyEntry {
 public:
  KeyEntry(QLineEdit& box, char separator) : box_(box), separator_(separator) {}

  bool Refused() const { return refused_; }
  const QString& RefusedText() const { return text_; }

  bool Handle(QEvent& event) {
    switch (event.type()) {
      case QEvent::KeyPress:
        return Key(static_cast<QKeyEvent&>(event));
      case QEvent::InputMethod:
        return Composed(static_cast<QInputMethodEvent&>(event));
      case QEvent::Drop:
        return Dropped(static_cast<QDropEvent&>(event));
      case QEvent::MouseButtonRelease:
        return Released(static_cast<QMouseEvent&>(event));
      case QEvent::ContextMenu:
        return OpenMenu(static_cast<QContextMenuEvent&>(event));
      default:
        return false;
    }
  }

 private:
  bool Insert(const QString& entry) {
    const std::optional<QString> passed = Filtered(KeptText(box_), entry, separator_);
    refused_ = !passed;
    text_ = entry;
    if (passed && !passed->isEmpty()) box_.insert(*passed);
    return true;
  }

  /// Types `text` in place of the selection; blanks and line ends around it, which come with a
  /// spreadsheet's cell, are left out.
  bool Paste(const QString& text) { return Insert(text.trimmed()); }

  bool Key(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste))
      return Paste(QApplication::clipboard()->text(PasteSource(key)));
    return TypesText(key) && Insert(key.text());
  }

  bool Composed(QInputMethodEvent& event) {
    if (event.commitString().isEmpty()) return false;
    QString kept = KeptText(box_);
    const int start = std::max(0, box_.cursorPosition() + event.replacementStart());
    if (event.replacementLength() > 0) kept.remove(start, event.replacementLength());
    const std::optional<QString> passed = Filtered(kept, event.commitString(), separator_);
    refused_ = !passed;
    text_ = event.commitString();
    if (passed)
      event.setCommitString(*passed, event.replacementStart(), event.replacementLength());
    else
      event.setCommitString(QString());
    return false;
  }

  bool Dropped(QDropEvent& event) {
    const bool moved = event.source() == &box_;
    if (moved || !event.mimeData()->hasText()) return false;
    box_.setCursorPosition(box_.cursorPositionAt(event.position().toPoint()));
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return Paste(event.mimeData()->text());
  }

  bool Released(const QMouseEvent& event) {
    if (event.button() != Qt::MiddleButton || !QApplication::clipboard()->supportsSelection())
      return false;
    box_.deselect();
    return Paste(QApplication::clipboard()->text(QClipboard::Selection));
  }

  /// The box's own menu, whose paste command becomes the key's.
  bool OpenMenu(const QContextMenuEvent& event) {
    QMenu* const menu = box_.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* const action : menu->actions()) {
      if (!IsPaste(*action)) continue;
      QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
      QObject::connect(action, &QAction::triggered, &box_, [&box = box_] {
        QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
        QApplication::sendEvent(&box, &paste);
      });
    }
    menu->popup(event.globalPos());
    return true;
  }

  QLineEdit& box_;
  char separator_;
  bool refused_ = false;
  QString text_;
};

}  // namespace

NumberEntry::NumberEntry(char separator, QObject* parent)
    : QObject(parent), separator_(separator) {}

void NumberEntry::Watch(QLineEdit& box) {
  box.installEventFilter(this);
}

bool NumberEntry::eventFilter(QObject* watched, QEvent* event) {
  auto* const box = qobject_cast<QLineEdit*>(watched);
  if (box == nullptr || box->isReadOnly()) return false;
  KeyEntry entry(*box, separator_);
  const bool dealtWith = entry.Handle(*event);
  if (entry.Refused()) {
    SayRefused(*box, TextId::KeyNotTaken, entry.RefusedText(), language_);
    emit Refused();
  }
  return dealtWith;
}

void SayRefused(QWidget& box, TextId why, const QString& entry, Language language) {
  constexpr int kMostLetters = 20;
  QApplication::beep();
  QToolTip::showText(
      box.mapToGlobal(QPoint(0, box.height())),
      QString::fromStdString(Filled(why, language, {entry.left(kMostLetters).toStdString()})),
      &box);
}

void LimitToWholeNumbers(QLineEdit& box, int least, int most) {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
  auto* const validator = new QIntValidator(least, most, &box);
  validator->setLocale(locale);
  box.setValidator(validator);
  QObject::connect(&box, &QLineEdit::inputRejected, &box, [] { QApplication::beep(); });
}

NumberBox::NumberBox(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setAccessibleName(name);
  setMinimumWidth(kNarrowest);
  connect(this, &QLineEdit::textEdited, this, [this] { SetMark(Mark::None); });
}

void NumberBox::Show(const Entry& entry, Mark mark, const QString& why) {
  shown_ = entry;
  shownText_ = QString::fromStdString(entry.text);
  setText(shownText_);
  setCursorPosition(0);
  SetMark(mark);
  why_ = why;
}

void NumberBox::Accept() {
  if (mark_ == Mark::Proposed) SetMark(Mark::None);
}

bool NumberBox::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || why_.isEmpty()) return QLineEdit::event(event);
  const QString usual = toolTip().isEmpty() ? QString() : toolTip() + u'\n';
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), usual + why_, this);
  return true;
}

Entry NumberBox::Value() const {
  return text() == shownText_ ? shown_ : Entry(text().toStdString());
}

QSize NumberBox::sizeHint() const {
  return {kUsualWidth, QLineEdit::sizeHint().height()};
}

void NumberBox::SetMark(Mark mark) {
  constexpr int kMiddleLightness = 128;
  QPalette colours;
  const bool dark = QApplication::palette(this).base().color().lightness() < kMiddleLightness;
  const MarkColours& marks = kMarkColours[static_cast<std::size_t>(mark)];
  if (mark != Mark::None) colours.setColor(QPalette::Text, dark ? marks.onDark : marks.onLight);
  mark_ = mark;
  why_.clear();
  setPalette(colours);
}

}  // namespace velmora
