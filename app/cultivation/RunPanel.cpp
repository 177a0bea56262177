#include "app/cultivation/RunPanel.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QTime>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {

QString ClockText(int seconds) {
  return QTime(0, 0).addSecs(seconds).toString(QStringLiteral("HH:mm:ss"));
}

RunPanel::RunPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
  SetRunning(false);
}

void RunPanel::Build() {
  propose_ = Named<QPushButton>("cmdPropor", this);
  all_ = Named<QPushButton>("cmdUsarTodos", this);
  save_ = Named<QPushButton>("cdmSalvar", this);
  save_->setIcon(DrawnIcon(Symbol::Save));
  start_ = Named<QPushButton>("cmdAjustar", this);
  start_->setIcon(DrawnIcon(Symbol::Start));
  stop_ = NewButton("Command1", Symbol::Stop, this);
  label_ = Named<QLabel>("lblAjustePar", this);
  label_->hide();
  clock_ = Named<QLabel>("lblTimer", this);
  clock_->hide();
  progress_ = Named<QProgressBar>("progresso", this);
  progress_->setFormat(QStringLiteral("%v / %m"));
  progress_->hide();
}

void RunPanel::LayOut() {
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(kSpacing);
  buttons->addWidget(propose_);
  buttons->addWidget(save_);
  buttons->addWidget(all_);
  buttons->addWidget(start_);
  buttons->addWidget(stop_);
  buttons->addStretch();
  auto* const course = new QHBoxLayout;
  course->setSpacing(kSpacing);
  course->addWidget(label_);
  course->addWidget(clock_);
  course->addWidget(progress_, 1);
  course->addStretch();
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  all->addLayout(buttons);
  all->addLayout(course);
}

void RunPanel::Wire() {
  connect(propose_, &QPushButton::clicked, this, &RunPanel::ProposeAsked);
  connect(all_, &QPushButton::clicked, this, &RunPanel::UseForAllAsked);
  connect(save_, &QPushButton::clicked, this, &RunPanel::SaveAsked);
  connect(start_, &QPushButton::clicked, this, &RunPanel::StartAsked);
  connect(stop_, &QToolButton::clicked, this, &RunPanel::StopAsked);
}

void RunPanel::SetRunning(bool running) {
  running_ = running;
  for (QPushButton* const button : {save_, start_}) button->setEnabled(!running);
  stop_->setEnabled(running);
  SetExperiments(experiments_);
  progress_->setVisible(running);
}

void RunPanel::TakeKeyboard() {
  if (running_)
    stop_->setFocus();
  else
    start_->setFocus();
}

void RunPanel::SetExperiments(int count) {
  experiments_ = count;
  propose_->setEnabled(!running_ && count > 0);
  all_->setEnabled(!running_ && count > 1);
}

void RunPanel::SetHeading(std::optional<TextId> heading) {
  heading_ = heading;
  label_->setVisible(heading.has_value());
  clock_->setVisible(heading.has_value());
  if (heading) label_->setText(Caption(*heading, language_));
}

void RunPanel::SetSimulates(bool simulates) {
  simulates_ = simulates;
  Show();
}

void RunPanel::ShowSeconds(int seconds) {
  clock_->setText(ClockText(seconds));
}

void RunPanel::ShowProgress(int generation, int limit) {
  progress_->setRange(0, limit);
  progress_->setValue(generation);
}

void RunPanel::SetLanguage(Language language) {
  language_ = language;
  Show();
}

void RunPanel::Show() {
  propose_->setText(Caption(TextId::Propose, language_));
  propose_->setToolTip(Caption(TextId::ProposeHint, language_));
  all_->setText(Caption(TextId::UseForAll, language_));
  all_->setToolTip(Caption(TextId::UseForAllHint, language_));
  start_->setText(Caption(simulates_ ? TextId::Simulate : TextId::Estimate, language_));
  // The method beside it is called the same.
  start_->setAccessibleName(start_->text().remove(u'&') + QStringLiteral(": ") + start_->toolTip());
  // What is said of a run that goes on is said, like its progress; the heading of results follows.
  if (heading_ == TextId::EstimatedParameters) label_->setText(Caption(*heading_, language_));
}

}  // namespace velmora
