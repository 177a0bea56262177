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

void NumberBox::ShowNumber(const std::string& shown, const std::string& exact, Mark mark) {
  shown_ = QString::fromStdString(shown);
  exact_ = exact;
  setText(shown_);
  setCursorPosition(0);
  SetMark(mark);
}

std::string NumberBox::Number() const {
  return text() == shown_ ? exact_ : text().toStdString();
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
