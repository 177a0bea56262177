#include "app/cultivation/ExperimentPanel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "app/widgets/Colours.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr int kNumberWidth = 56;
constexpr QColor kNotSaved(0xB3, 0x59, 0x00);

}  // namespace

ExperimentPanel::ExperimentPanel(QWidget* parent) : QGroupBox(parent) {
  setObjectName(QStringLiteral("frameExperimento"));
  Build();
  LayOut();
  Wire();
  Show();
}

void ExperimentPanel::Build() {
  back_ = NewButton("cdmBackExp", Symbol::Back, this);
  previous_ = NewButton("cdmNext(0)", Symbol::Previous, this);
  number_ = Named<QLineEdit>("txtNExp", this);
  number_->setReadOnly(true);
  number_->setFocusPolicy(Qt::NoFocus);
  number_->setAlignment(Qt::AlignCenter);
  number_->setFixedWidth(kNumberWidth);
  next_ = NewButton("cdmNext(1)", Symbol::Next, this);
  count_ = Named<QLabel>("lblLugar", this);
  none_ = Named<QLabel>("lblExpNaoAdic", this);
  notSaved_ = Named<QLabel>("lblNaoSalvo", this);
  QPalette told = notSaved_->palette();
  told.setColor(QPalette::WindowText, Readable(kNotSaved, QPalette::Window));
  notSaved_->setPalette(told);
  savedCount_ = Named<QLabel>("lblSalvos", this);
  info_ = Named<QLabel>("lblInfo", this);
  info_->setWordWrap(true);
}

void ExperimentPanel::LayOut() {
  auto* const state = new QVBoxLayout;
  state->setSpacing(0);
  state->addWidget(savedCount_);
  state->addWidget(notSaved_);
  row_ = new QHBoxLayout(this);
  TightenInside(*row_);
  row_->addWidget(back_);
  row_->addSpacing(2 * kSpacing);
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{previous_, number_, next_, count_, none_})
    row_->addWidget(widget);
  row_->addSpacing(2 * kSpacing);
  row_->addLayout(state);
  row_->addSpacing(2 * kSpacing);
  TakeInfo();
}

void ExperimentPanel::TakeInfo() {
  if (row_->indexOf(info_) < 0) row_->addWidget(info_, 1);
}

void ExperimentPanel::Wire() {
  connect(back_, &QToolButton::clicked, this, &ExperimentPanel::BackAsked);
  connect(previous_, &QToolButton::clicked, this, [this] { emit StepAsked(-1); });
  connect(next_, &QToolButton::clicked, this, [this] { emit StepAsked(1); });
}

void ExperimentPanel::SetStanding(const ExperimentStanding& standing) {
  standing_ = standing;
  Show();
}

void ExperimentPanel::SetLanguage(Language language) {
  language_ = language;
  Show();
}

void ExperimentPanel::Show() {
  const auto& [place, count, number, saved, savedCount] = standing_;
  previous_->setEnabled(place > 1);
  next_->setEnabled(place < count);
  previous_->setAccessibleName(QStringLiteral("%1 −").arg(Caption(TextId::Experiments, language_)));
  next_->setAccessibleName(QStringLiteral("%1 +").arg(Caption(TextId::Experiments, language_)));
  number_->setText(place == 0 ? QString() : QString::number(number));
  count_->setText(QStringLiteral("%1 / %2").arg(place).arg(count));
  count_->setVisible(count > 0);
  none_->setVisible(count == 0);
  savedCount_->setText(QStringLiteral("%1: ✓ %2 / %3")
                           .arg(Caption(TextId::CultivationConditions, language_))
                           .arg(savedCount)
                           .arg(count));
  savedCount_->setVisible(count > 0);
  notSaved_->setVisible(place > 0 && !saved);
}

}  // namespace velmora
