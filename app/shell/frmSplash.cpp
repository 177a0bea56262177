#include "app/shell/frmSplash.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/shell/GrowthCurveView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr int kTextWidth = 300;

QLabel* NewLine(const char* name, QWidget* parent) {
  auto* const label = Named<QLabel>(name, parent);
  label->setWordWrap(true);
  return label;
}

}  // namespace

frmSplash::frmSplash(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmSplash"));
  setWindowTitle(QStringLiteral("Velmora"));
  BuildPanels();
  LayOut();
  Wire();
  ShowLanguage();
}

void frmSplash::BuildPanels() {
  picture_ = new GrowthCurveView(this);
  lblNome_ = NewLine("lblNome", this);
  lblAjusteParCin_ = NewLine("lblAjusteParCin", this);
  lblversao_ = NewLine("lblversao", this);
  lblEscolher_ = NewLine("lblEscolher", this);
  optIdioma_[0] = Named<QRadioButton>("optIdioma(0)", this);
  optIdioma_[1] = Named<QRadioButton>("optIdioma(1)", this);
  cmdOk_ = Named<QPushButton>("cmdOk", this);
  cmdSair_ = Named<QPushButton>("cmdSair", this);

  lblNome_->setText(QStringLiteral("Velmora"));
  QFont large = font();
  large.setPointSizeF(2 * large.pointSizeF());
  large.setBold(true);
  lblNome_->setFont(large);
  // A language is named in itself, so that it is found whichever is shown.
  optIdioma_[0]->setText(QStringLiteral("English"));
  optIdioma_[1]->setText(QStringLiteral("Português"));
  cmdOk_->setDefault(true);
}

void frmSplash::LayOut() {
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(8);
  for (QLabel* const label : {lblNome_, lblAjusteParCin_, lblversao_}) texts->addWidget(label);
  texts->addStretch();
  texts->addSpacing(12);
  texts->addWidget(lblEscolher_);
  for (QRadioButton* const option : optIdioma_) texts->addWidget(option);
  lblAjusteParCin_->setMinimumWidth(kTextWidth);

  auto* const upper = new QHBoxLayout;
  upper->setSpacing(kDialogMargin);
  upper->addWidget(picture_);
  upper->addLayout(texts, 1);

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdOk_);
  buttons->addWidget(cmdSair_);

  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  whole->setSpacing(kDialogMargin);
  whole->addLayout(upper);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

void frmSplash::Wire() {
  connect(optIdioma_[0], &QRadioButton::clicked, this, [this] { Choose(Language::English); });
  connect(optIdioma_[1], &QRadioButton::clicked, this, [this] { Choose(Language::Portuguese); });
  connect(cmdOk_, &QPushButton::clicked, this, &frmSplash::Confirm);
  connect(cmdSair_, &QPushButton::clicked, this, &frmSplash::close);
}

void frmSplash::ShowLanguage() {
  optIdioma_[1]->setChecked(true);
  // Tab goes to the chosen one, from which the arrows choose.
  optIdioma_[0]->setFocusPolicy(Qt::ClickFocus);
  Choose(Language::Portuguese);
  cmdOk_->setFocus();
}

void frmSplash::Choose(Language language) {
  session_.language = language;
  Idiomas(*this, language);
}

void frmSplash::Confirm() {
  emit Confirmed();
  close();
}

}  // namespace velmora
