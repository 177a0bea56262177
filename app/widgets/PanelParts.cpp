#include "app/widgets/PanelParts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace velmora {
namespace {

constexpr int kFlatIcon = 24;  // px

}  // namespace

QString MemberName(const char* array, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1StringView(array)).arg(index);
}

QLabel* NewLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* const label = Named<QLabel>(name, parent);
  label->setText(text);
  return label;
}

QToolButton* NewButton(const char* name, Symbol symbol, QWidget* parent) {
  auto* const button = Named<QToolButton>(name, parent);
  button->setIcon(DrawnIcon(symbol));
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

QToolButton* NewFlatButton(const char* name, Symbol symbol, QWidget* parent) {
  QToolButton* const button = NewButton(name, symbol, parent);
  button->setIconSize(QSize(kFlatIcon, kFlatIcon));
  button->setAutoRaise(true);
  return button;
}

void FitScreen(QWidget& window, const QSize& wanted) {
  constexpr QSize kFrame(16, 64);  // px, of a window: its borders and its title bar
  const QRect screen = window.screen()->availableGeometry();
  window.resize(wanted.boundedTo(screen.size() - kFrame));
  if (window.size() == wanted) return;
  // Over its owner, the title bar of so large a window could stand above the screen.
  window.move(screen.center() - window.rect().center());
}

void Tighten(QLayout& layout) {
  layout.setSpacing(kSpacing);
  layout.setContentsMargins(0, 0, 0, 0);
}

void TightenInside(QLayout& layout) {
  layout.setSpacing(kSpacing);
  layout.setContentsMargins(kSpacing, kSpacing / 2, kSpacing, kSpacing / 2);
}

QPushButton* LayOutDialog(QDialog& dialog, QGroupBox& frame) {
  auto* const ok = Named<QPushButton>("OKButton", &dialog);
  ok->setText(QStringLiteral("OK"));
  ok->setDefault(true);
  auto* const cancel = Named<QPushButton>("CancelButton", &dialog);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* const whole = new QVBoxLayout(&dialog);
  whole->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  whole->setSpacing(kDialogSpacing);
  whole->addWidget(&frame);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
  return ok;
}

void GoToBox(QLineEdit& box) {
  box.setFocus();
  box.selectAll();
}

OptionGroup::OptionGroup(std::span<const RadioOption> options, QWidget* parent)
    : QButtonGroup(parent) {
  for (const RadioOption& option : options)
    addButton(Named<QRadioButton>(option.name, parent), option.value);
}

void OptionGroup::Choose(int value) {
  QAbstractButton* const chosen = button(value);
  // Tab goes to the chosen one, from which the arrows choose.
  for (QAbstractButton* const option : buttons())
    option->setFocusPolicy(chosen == nullptr || option == chosen ? Qt::StrongFocus
                                                                 : Qt::ClickFocus);
  if (chosen != nullptr) return chosen->setChecked(true);
  // An exclusive group would not let its last choice go.
  setExclusive(false);
  for (QAbstractButton* const option : buttons()) option->setChecked(false);
  setExclusive(true);
}

int OptionGroup::Chosen() const {
  return std::max(checkedId(), 0);
}

}  // namespace velmora
