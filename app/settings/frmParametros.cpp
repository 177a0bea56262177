#include "app/settings/frmParametros.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"
#include "cultivation/FitSetUp.h"
#include "estimation/EstimationSettings.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

struct Box {
  const char* name;
  const char* label;
  std::size_t row;                    // in which it stands and is checked
  double EstimationSettings::*value;  // nullptr for the seed, which is a whole number
  std::optional<double> TypedSettings::*typed;
};

// In the order in which the boxes are created.
constexpr std::array<Box, 7> kBoxTable = {
    {{"txtNPOP", "lblTamPop", 0, &EstimationSettings::NPOP, &TypedSettings::NPOP},
     {"txtPCROS", "lblPropCross", 2, &EstimationSettings::PCROS, &TypedSettings::PCROS},
     {"txtFACT1", "lblEscalaPar2", 4, &EstimationSettings::FACT1, &TypedSettings::FACT1},
     {"txtIU", "lblNumRand", 6, nullptr, &TypedSettings::IU},
     {"txtITER", "lblNumIt", 1, &EstimationSettings::ITER, &TypedSettings::ITER},
     {"txtFACT", "lblEscalaPar1", 3, &EstimationSettings::FACT, &TypedSettings::FACT},
     {"txtEPS", "lblAcuracia", 5, &EstimationSettings::EPS, &TypedSettings::EPS}}};

constexpr int kButtonPadding = 16;  // px, both sides together

double ValueOf(const EstimationSettings& settings, const Box& box) {
  return box.value != nullptr ? settings.*box.value : static_cast<double>(settings.IU);
}

}  // namespace

frmParametros::frmParametros(Session& session, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), session_(session), dialogs_(dialogs) {
  setObjectName(QStringLiteral("frmParametros"));
  BuildPanels();
  LayOut();
  Wire();
  ShowSettings();
}

void frmParametros::BuildPanels() {
  static_assert(kBoxTable.size() == kBoxes);
  auto* const numbers = new NumberEntry(session_.separator, this);
  for (const Box& each : kBoxTable) {
    auto* const box = Named<QLineEdit>(each.name, this);
    box->installEventFilter(this);
    numbers->Watch(*box);
    boxes_[each.row] = box;
  }
  cdmAtualizar_ = Named<QPushButton>("cdmAtualizar", this);
  cdmFechar_ = Named<QPushButton>("cdmFechar", this);
}

void frmParametros::LayOut() {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(kDialogMargin);
  grid->setVerticalSpacing(8);
  for (const Box& each : kBoxTable) {
    QLineEdit* const box = boxes_[each.row];
    auto* const label = Named<QLabel>(each.label, this);
    label->setBuddy(box);
    const int row = static_cast<int>(each.row);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 16);
  }
  grid->addWidget(Named<QLabel>("lblEPN", this), static_cast<int>(kBoxes), 0, 1, 2);
  grid->setColumnStretch(0, 1);

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cdmAtualizar_);
  buttons->addWidget(cdmFechar_);

  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  whole->setSpacing(kDialogMargin);
  whole->addLayout(grid);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

void frmParametros::Wire() {
  QWidget* before = boxes_.front();
  for (QLineEdit* const box : boxes_) {
    if (box != before) setTabOrder(before, box);
    before = box;
  }
  connect(cdmAtualizar_, &QPushButton::clicked, this, &frmParametros::Apply);
  connect(cdmFechar_, &QPushButton::clicked, this, &frmParametros::close);
}

void frmParametros::ShowSettings() {
  for (const Box& each : kBoxTable)
    boxes_[each.row]->setText(QString::fromStdString(StrText(ValueOf(session_.settings, each))));
  Idiomas(*this, session_.language);
  boxes_.front()->setFocus();
}

void frmParametros::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  for (QPushButton* const button : {cdmAtualizar_, cdmFechar_})
    button->setMinimumWidth(button->sizeHint().width() + kButtonPadding);
}

bool frmParametros::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  focusNextChild();
  return true;
}

void frmParametros::Apply() {
  TypedSettings typed;
  for (const Box& each : kBoxTable)
    typed.*each.typed = ReadBox(boxes_[each.row]->text().toStdString(), session_.separator);
  const CheckedSettings checked = CheckSettings(typed);
  if (!checked.refused) {
    session_.settings = checked.settings;
    close();
    return;
  }
  dialogs_.Show(this, SettingsRefusal());
  GoToBox(*boxes_[*checked.refused]);
}

}  // namespace velmora
