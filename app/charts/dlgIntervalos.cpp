#include "app/charts/dlgIntervalos.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"
#include "charts/ChartContent.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kBoxDigits = 16;

}  // namespace

dlgIntervalos::dlgIntervalos(const Session& session, Dialogs& dialogs, const TimeInterval& measured,
                             const TimeInterval& shown, QWidget* parent)
    : QDialog(parent), session_(session), dialogs_(dialogs), measured_(measured), interval_(shown) {
  setObjectName(QStringLiteral("dlgIntervalos"));
  Build();
  Idiomas(*this, session_.language);
  ShowInterval();
}

void dlgIntervalos::Build() {
  auto* const frame = Named<QGroupBox>("frameIntervalos", this);
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(kDialogSpacing);
  grid->setColumnStretch(0, 1);
  auto* const numbers = new NumberEntry(session_.separator, this);
  const auto add = [&](const char* label, const char* name, int row) {
    auto* const caption = Named<QLabel>(label, frame);
    auto* const box = Named<QLineEdit>(name, frame);
    caption->setBuddy(box);
    numbers->Watch(*box);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kBoxDigits);
    grid->addWidget(caption, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(new QLabel(QStringLiteral("h"), frame), row, 2);
    return box;
  };
  txtMinT_ = add("lblMinTempo", "txtMinT", 0);
  txtMaxT_ = add("lblMaxTempo", "txtMaxT", 1);
  connect(LayOutDialog(*this, *frame), &QPushButton::clicked, this, &dlgIntervalos::Confirm);
}

void dlgIntervalos::ShowInterval() {
  for (const auto& [box, time] : {std::pair(txtMaxT_, interval_.to), {txtMinT_, interval_.from}}) {
    box->setText(QString::fromStdString(PlainText(time, session_.separator)));
    box->setCursorPosition(0);
  }
  GoToBox(*txtMinT_);
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
  GoToBox(checked.failed == IntervalBox::Minimum ? *txtMinT_ : *txtMaxT_);
}

}  // namespace velmora
