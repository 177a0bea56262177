#include "app/cultivation/SummaryText.h"

#include <QHelpEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr int kLeastRows = 3;

}  // namespace

SummaryText::SummaryText(QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(QStringLiteral("txtResumo"));
  setReadOnly(true);
  setTabChangesFocus(true);
}

void SummaryText::SetLines(std::vector<SummaryLine> lines) {
  lines_ = std::move(lines);
  QStringList shown;
  for (const SummaryLine& line : lines_) shown << QString::fromStdString(line.text);
  setPlainText(shown.join(u'\n'));
  TakeRoom();
}

void SummaryText::TakeRoom() {
  const int border = 2 * frameWidth() + 2 * static_cast<int>(document()->documentMargin());
  // The layout of plain text counts its height in rows, of which a long line has several.
  const auto rows = static_cast<int>(std::ceil(document()->size().height()));
  const int room = rows * fontMetrics().lineSpacing() + border;
  const int least = std::min(rows, kLeastRows) * fontMetrics().lineSpacing() + border;
  setMinimumHeight(least);
  setMaximumHeight(room);
}

void SummaryText::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  TakeRoom();
}

QString SummaryText::Whole(int line) const {
  if (line < 0 || line >= static_cast<int>(lines_.size())) return {};
  const SummaryLine& told = lines_[static_cast<std::size_t>(line)];
  QString text = QString::fromStdString(told.text);
  if (!told.number.empty())
    text.replace(QString::fromStdString(told.number), QString::fromStdString(told.all));
  return text;
}

bool SummaryText::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QPlainTextEdit::viewportEvent(event);
  const auto& at = static_cast<const QHelpEvent&>(*event);
  const int line = cursorForPosition(at.pos()).blockNumber();
  const bool shortened = line < static_cast<int>(lines_.size()) &&
                         !lines_[static_cast<std::size_t>(line)].number.empty();
  QToolTip::showText(at.globalPos(), shortened ? Whole(line) : QString(), this);
  return true;
}

QMimeData* SummaryText::createMimeDataFromSelection() const {
  QStringList copied = textCursor().selectedText().split(QChar::ParagraphSeparator);
  int line = document()->findBlock(textCursor().selectionStart()).blockNumber();
  for (QString& text : copied) {
    if (line < static_cast<int>(lines_.size())) {
      const SummaryLine& told = lines_[static_cast<std::size_t>(line)];
      if (!told.number.empty())
        text.replace(QString::fromStdString(told.number), QString::fromStdString(told.all));
    }
    ++line;
  }
  auto* const all = new QMimeData;
  all->setText(copied.join(u'\n'));
  return all;
}

}  // namespace velmora
