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
                             const TimeInterval& shown, const std::string& variable,
                             const TypedInterval& bounds, QWidget* parent)
    : QDialog(parent),
      session_(session),
      dialogs_(dialogs),
      measured_(measured),
      interval_(shown),
      bounds_(bounds) {
  setObjectName(QStringLiteral("dlgIntervalos"));
  Build(variable);
  Idiomas(*this, session_.language);
  ShowInterval();
}

void dlgIntervalos::Build(const std::string& variable) {
  auto* const frame = Named<QGroupBox>("frameIntervalos", this);
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(kDialogSpacing);
  grid->setColumnStretch(0, 1);
  auto* const numbers = new NumberEntry(session_.separator, this);
  const auto add = [&](const char* label, const char* name, const char* unit, TextId text = {}) {
    const int row = grid->rowCount();
    auto* const caption = Named<QLabel>(label, frame);
    if (text != TextId{})
      caption->setText(QString::fromStdString(Filled(text, session_.language, {variable})));
    auto* const box = Named<QLineEdit>(name, frame);
    caption->setBuddy(box);
    if (text == TextId{}) numbers->Watch(*box);  // a bound of an axis may be negative
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kBoxDigits);
    grid->addWidget(caption, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(new QLabel(QLatin1StringView(unit), frame), row, 2);
    return box;
  };
  txtMinT_ = add("lblMinTempo", "txtMinT", "h");
  txtMaxT_ = add("lblMaxTempo", "txtMaxT", "h");
  txtMinV_ = add("lblMinValor", "txtMinV", "g/L", TextId::LeastValue);
  txtMaxV_ = add("lblMaxValor", "txtMaxV", "g/L", TextId::GreatestValue);
  connect(LayOutDialog(*this, *frame), &QPushButton::clicked, this, &dlgIntervalos::Confirm);
}

void dlgIntervalos::ShowInterval() {
  const auto show = [this](QLineEdit* box, std::optional<double> value) {
    box->setText(value ? QString::fromStdString(PlainText(*value, session_.separator)) : QString());
    box->setCursorPosition(0);
  };
  show(txtMinT_, interval_.from);
  show(txtMaxT_, interval_.to);
  show(txtMinV_, bounds_.from);
  show(txtMaxV_, bounds_.to);
  GoToBox(*txtMinT_);
}

std::optional<TypedInterval> dlgIntervalos::ReadBounds() {
  TypedInterval bounds;
  for (const auto& [box, bound] :
       {std::pair(txtMinV_, &TypedInterval::from), {txtMaxV_, &TypedInterval::to}}) {
    if (box->text().trimmed().isEmpty()) continue;
    bounds.*bound = ReadBox(box->text().toStdString(), session_.separator);
    if (bounds.*bound) continue;
    dialogs_.Show(this, Attention({TextId::CheckBounds}, Icon::Exclamation));
    GoToBox(*box);
    return std::nullopt;
  }
  if (!bounds.from || !bounds.to || *bounds.from < *bounds.to) return bounds;
  dialogs_.Show(this, Attention({TextId::ValuesSwapped}, Icon::Exclamation));
  GoToBox(*txtMinV_);
  return std::nullopt;
}

void dlgIntervalos::Confirm() {
  const auto typed = [this](const QLineEdit* box) {
    return ReadBox(box->text().toStdString(), session_.separator);
  };
  const CheckedInterval checked = CheckInterval({typed(txtMinT_), typed(txtMaxT_)}, measured_);
  if (checked.refusal) {
    dialogs_.Show(this, *checked.refusal);
    return GoToBox(checked.failed == IntervalBox::Minimum ? *txtMinT_ : *txtMaxT_);
  }
  const std::optional<TypedInterval> bounds = ReadBounds();
  if (!bounds) return;
  interval_ = checked.interval;
  bounds_ = *bounds;
  accept();
}

}  // namespace velmora
