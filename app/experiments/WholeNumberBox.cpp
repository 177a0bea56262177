#include "app/experiments/WholeNumberBox.h"

#include <QApplication>
#include <QIntValidator>
#include <QLineEdit>
#include <QLocale>

namespace velmora {

void LimitToWholeNumbers(QLineEdit& box, int least, int most) {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
  auto* const validator = new QIntValidator(least, most, &box);
  validator->setLocale(locale);
  box.setValidator(validator);
  QObject::connect(&box, &QLineEdit::inputRejected, &box, [] { QApplication::beep(); });
}

}  // namespace velmora
