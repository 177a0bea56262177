#include "app/charts/dlgIntervalos.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "charts/IntervalCheck.h"
#include "language/Numbers.h"

namespace velmora {
namespace {
constexpr int kSpacing = 12, kMargin = 18;  // px
constexpr int kBoxDigits = 16;

template <class Control>
Control* Named(const char* name, QWidget* parent) {
  auto* const control = new Control(parent);
  control->setObjectName(QLatin1StringView(name));
  return control;
}

}  // namespace

dlgIntervalos::dlgIntervalos(const Session& session, Dialogs& dialogs, const TimeInterval& measured,
                             const TimeInterval& shown, QWidget* parent)
    : QDialog(parent), session_(session), dialogs_(dialogs), measured_(measured), interval_(shown) {
  setObjectName(QStringLiteral("dlgIntervalos"));
  BuildPanels();
  LayOut();
  Wire();
  ShowInterval();
}

void dlgIntervalos::BuildPanels() {
  lblMinTempo_ = Named<QLabel>("lblMinTempo", this);
  txtMinT_ = Named<QLineEdit>("txtMinT", this);
  lblMaxTempo_ = Named<QLabel>("lblMaxTempo", this);
  txtMaxT_ = Named<QLineEdit>("txtMaxT", this);
  ok_ = Named<QPushButton>("OKButton", this);
  cancel_ = Named<QPushButton>("CancelButton", this);
  ok_->setText(QStringLiteral("OK"));
  ok_->setDefault(true);
  lblMinTempo_->setBuddy(txtMinT_);
  lblMaxTempo_->setBuddy(txtMaxT_);
  auto* const numbers = new NumberEntry(session_.separator, this);
  for (QLineEdit* const box : {txtMinT_, txtMaxT_}) numbers->Watch(*box);
}

void dlgIntervalos::LayOut() {
  auto* const frame = Named<QGroupBox>("frameIntervalos", this);
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(kSpacing);
  grid->setColumnStretch(0, 1);
  int row = 0;
  for (const auto& [label, box] : {std::pair(lblMinTempo_, txtMinT_), {lblMaxTempo_, txtMaxT_}}) {
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kBoxDigits);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(new QLabel(QStringLiteral("h"), frame), row++, 2);
  }
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->setSpacing(kSpacing);
  whole->addWidget(frame);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

void dlgIntervalos::Wire() {
  connect(ok_, &QPushButton::clicked, this, &dlgIntervalos::Confirm);
  connect(cancel_, &QPushButton::clicked, this, &dlgIntervalos::reject);
}

void dlgIntervalos::ShowInterval() {
  Idiomas(*this, session_.language);
  txtMinT_->setText(QString::fromStdString(PlainText(interval_.from, session_.separator)));
  txtMaxT_->setText(QString::fromStdString(PlainText(interval_.to, session_.separator)));
  for (QLineEdit* const box : {txtMaxT_, txtMinT_}) box->setCursorPosition(0);
  txtMinT_->setFocus();
  txtMinT_->selectAll();
}

void dlgIntervalos::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  cancel_->setText(Caption(TextId::Cancel, session_.language));
  txtMinT_->setAccessibleName(lblMinTempo_->text());
  txtMaxT_->setAccessibleName(lblMaxTempo_->text());
}

void dlgIntervalos::Confirm() {
  const auto typed = [this](const QLineEdit* box) {
    return ReadBox(box->text().toStdString(), session_.separator);
  };
  const CheckedInterval checked = CheckInterval({typed(txtMinT_), typed(txtMaxT_)}, measured_);
  if (!checked.refusal) {
    interval_ = checked.interval;
    accept();
    return;
  }
  dialogs_.Show(this, *checked.refusal);
  QLineEdit* const failed = checked.failed == IntervalBox::Minimum ? txtMinT_ : txtMaxT_;
  failed->setFocus();
  failed->selectAll();
}

}  // namespace velmora
