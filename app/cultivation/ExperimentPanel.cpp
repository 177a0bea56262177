#include "app/cultivation/ExperimentPanel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr int kNumberWidth = 56;

}  // namespace

ExperimentPanel::ExperimentPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
  Show();
}

void ExperimentPanel::Build() {
  frame_ = NewFrame(QStringLiteral("frameExperimento"), this);
  back_ = NewButton(QStringLiteral("cdmBackExp"), Symbol::Back, frame_);
  previous_ = NewButton(QStringLiteral("cdmNext(0)"), Symbol::Previous, frame_);
  number_ = new QLineEdit(frame_);
  number_->setObjectName(QStringLiteral("txtNExp"));
  number_->setReadOnly(true);
  number_->setFocusPolicy(Qt::NoFocus);
  number_->setAlignment(Qt::AlignCenter);
  number_->setFixedWidth(kNumberWidth);
  next_ = NewButton(QStringLiteral("cdmNext(1)"), Symbol::Next, frame_);
  count_ = NewLabel(QStringLiteral("lblLugar"), {}, frame_);
  none_ = NewLabel(QStringLiteral("lblExpNaoAdic"), {}, frame_);
  notSaved_ = NewLabel(QStringLiteral("lblNaoSalvo"), {}, frame_);
  notSaved_->setStyleSheet(QStringLiteral("color: #B35900"));
  savedCount_ = NewLabel(QStringLiteral("lblSalvos"), {}, frame_);
  info_ = NewLabel(QStringLiteral("lblInfo"), {}, frame_);
  info_->setWordWrap(true);
}

void ExperimentPanel::LayOut() {
  auto* const row = new QHBoxLayout(frame_);
  TightenInside(*row);
  row->addWidget(back_);
  row->addSpacing(2 * kSpacing);
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{previous_, number_, next_, count_, none_})
    row->addWidget(widget);
  row->addSpacing(2 * kSpacing);
  auto* const state = new QVBoxLayout;
  state->setSpacing(0);
  state->addWidget(savedCount_);
  state->addWidget(notSaved_);
  row->addLayout(state);
  row->addSpacing(2 * kSpacing);
  row->addWidget(info_, 1);
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  all->addWidget(frame_);
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
  number_->setAccessibleName(Caption(TextId::ExperimentNumber, language_));
  number_->setToolTip(Caption(TextId::ExperimentNumber, language_));
  count_->setText(QStringLiteral("%1 / %2").arg(place).arg(count));
  count_->setVisible(count > 0);
  none_->setVisible(count == 0);
  savedCount_->setText(QStringLiteral("%1: ✓ %2 / %3")
                           .arg(Caption(TextId::CultivationConditions, language_))
                           .arg(savedCount)
                           .arg(count));
  savedCount_->setVisible(count > 0);
  notSaved_->setText(Caption(TextId::ExperimentNotSaved, language_));
  notSaved_->setVisible(place > 0 && !saved);
}

}  // namespace velmora
