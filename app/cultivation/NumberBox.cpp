#include "app/cultivation/NumberBox.h"

#include <QPalette>

namespace velmora {
namespace {

constexpr QColor kEstimated(0x00, 0x66, 0xB3);
constexpr int kNarrowest = 56;
constexpr int kUsualWidth = 90;

}  // namespace

NumberBox::NumberBox(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setAccessibleName(name);
  setMinimumWidth(kNarrowest);
  connect(this, &QLineEdit::textEdited, this, [this] { SetMark(Mark::None); });
}

void NumberBox::Show(const Entry& entry, Mark mark) {
  shown_ = entry;
  shownText_ = QString::fromStdString(entry.text);
  setText(shownText_);
  setCursorPosition(0);
  SetMark(mark);
}

Entry NumberBox::Value() const {
  return text() == shownText_ ? shown_ : Entry(text().toStdString());
}

QSize NumberBox::sizeHint() const {
  return {kUsualWidth, QLineEdit::sizeHint().height()};
}

void NumberBox::SetMark(Mark mark) {
  QPalette colours;
  if (mark == Mark::Estimated) colours.setColor(QPalette::Text, kEstimated);
  setPalette(colours);
}

}  // namespace velmora
