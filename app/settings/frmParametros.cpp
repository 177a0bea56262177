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
  double EstimationSettings::*value;  // nullptr for the seed, which is a whole number
  std::optional<double> TypedSettings::*typed;
};

// In the order in which they are read and checked.
constexpr std::array<Box, 7> kBoxTable = {
    {{"txtNPOP", "lblTamPop", &EstimationSettings::NPOP, &TypedSettings::NPOP},
     {"txtITER", "lblNumIt", &EstimationSettings::ITER, &TypedSettings::ITER},
     {"txtPCROS", "lblPropCross", &EstimationSettings::PCROS, &TypedSettings::PCROS},
     {"txtFACT", "lblEscalaPar1", &EstimationSettings::FACT, &TypedSettings::FACT},
     {"txtFACT1", "lblEscalaPar2", &EstimationSettings::FACT1, &TypedSettings::FACT1},
     {"txtEPS", "lblAcuracia", &EstimationSettings::EPS, &TypedSettings::EPS},
     {"txtIU", "lblNumRand", nullptr, &TypedSettings::IU}}};

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
  for (std::size_t i = 0; i < kBoxes; ++i) {
    labels_[i] = Named<QLabel>(kBoxTable[i].label, this);
    boxes_[i] = Named<QLineEdit>(kBoxTable[i].name, this);
    boxes_[i]->installEventFilter(this);
    labels_[i]->setBuddy(boxes_[i]);
    numbers->Watch(*boxes_[i]);
  }
  lblEPN_ = Named<QLabel>("lblEPN", this);
  cdmAtualizar_ = Named<QPushButton>("cdmAtualizar", this);
  cdmFechar_ = Named<QPushButton>("cdmFechar", this);
}

void frmParametros::LayOut() {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(kDialogMargin);
  grid->setVerticalSpacing(8);
  for (std::size_t i = 0; i < kBoxes; ++i) {
    const int row = static_cast<int>(i);
    grid->addWidget(labels_[i], row, 0);
    grid->addWidget(boxes_[i], row, 1);
    boxes_[i]->setFixedWidth(boxes_[i]->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 16);
  }
  grid->addWidget(lblEPN_, static_cast<int>(kBoxes), 0, 1, 2);
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
  connect(cdmAtualizar_, &QPushButton::clicked, this, &frmParametros::Apply);
  connect(cdmFechar_, &QPushButton::clicked, this, &frmParametros::close);
}

void frmParametros::ShowSettings() {
  for (std::size_t i = 0; i < kBoxes; ++i)
    boxes_[i]->setText(QString::fromStdString(StrText(ValueOf(session_.settings, kBoxTable[i]))));
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
  for (std::size_t i = 0; i < kBoxes; ++i)
    typed.*kBoxTable[i].typed = ReadBox(boxes_[i]->text().toStdString(), session_.separator);
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
