#include "app/experiments/DescriptionBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QValidator>

#include "data/Description.h"

namespace velmora {
namespace {

/// Changes the box's text into one that fits.
class FittingValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& cursor) const override {
    const DescriptionText fitting = FittingDescription(input.toStdString());
    const std::string before = FittingDescription(input.left(cursor).toStdString()).text;
    if (fitting.lettersLeftOut) QApplication::beep();
    input = QString::fromStdString(fitting.text);
    cursor = static_cast<int>(QString::fromStdString(before).size());
    return Acceptable;
  }
};

}  // namespace

DescriptionBox::DescriptionBox(QWidget* parent) : QLineEdit(parent) {
  setValidator(new FittingValidator(this));
}

void DescriptionBox::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const bool printable = !typed.isEmpty() && typed.front().isPrint();
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  if (printable && !MayBeTyped(typed.toStdString(), start == 0))
    QApplication::beep();
  else
    QLineEdit::keyPressEvent(event);
}

}  // namespace velmora
