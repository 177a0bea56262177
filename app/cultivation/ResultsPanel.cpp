#include "app/cultivation/ResultsPanel.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextCursor>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
ResultsPanel::ResultsPanel(QWidget* parent) : QGroupBox(parent) {
  setObjectName(QStringLiteral("frameResultados"));
  Build();
  LayOut();
  Wire();
  Show();
}

void ResultsPanel::Build() {
  text_ = Named<QPlainTextEdit>("txtResultados", this);
  text_->setReadOnly(true);
  text_->setUndoRedoEnabled(false);
  text_->setTabChangesFocus(true);
  summary_ = new SummaryText(this);
  summary_->hide();
  improve_ = Named<QPushButton>("cmdMelhorar", this);
  compare_ = Named<QPushButton>("cmdComparar", this);
  howSure_ = Named<QPushButton>("cmdCerteza", this);
  previous_ = Named<QPushButton>("cmdAnterior", this);
  previous_->hide();
  toggle_ = NewButton("cmdIrVoltar", Symbol::Initial, this);
  report_ = NewButton("cmdRelatorio", Symbol::Report, this);
  clear_ = NewButton("cmdLimpar", Symbol::Clear, this);
}

void ResultsPanel::LayOut() {
  auto* const buttons = new QVBoxLayout;
  buttons->setSpacing(kSpacing);
  for (QToolButton* const button : {toggle_, report_, clear_}) buttons->addWidget(button);
  buttons->addStretch();
  auto* const row = new QHBoxLayout(this);
  TightenInside(*row);
  auto* const actions = new QHBoxLayout;
  actions->setSpacing(kSpacing);
  actions->addWidget(improve_);
  actions->addWidget(howSure_);
  actions->addWidget(compare_);
  actions->addStretch();
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(kSpacing);
  texts->addWidget(summary_, 1);
  texts->addWidget(text_, 1);
  texts->addLayout(actions);
  texts->addWidget(previous_, 0, Qt::AlignLeft);
  row->addLayout(texts, 1);
  row->addLayout(buttons);
}

void ResultsPanel::Wire() {
  connect(clear_, &QToolButton::clicked, this, &ResultsPanel::Clear);
  // The end of the text stays in sight, unless somebody reads further up.
  QScrollBar& bar = *text_->verticalScrollBar();
  connect(&bar, &QScrollBar::valueChanged, this,
          [this, &bar](int value) { atEnd_ = value == bar.maximum(); });
  connect(&bar, &QScrollBar::rangeChanged, this, [this, &bar](int, int end) {
    if (atEnd_) bar.setValue(end);
  });
  connect(toggle_, &QToolButton::clicked, this, &ResultsPanel::ToggleAsked);
  connect(improve_, &QPushButton::clicked, this, &ResultsPanel::ImproveAsked);
  connect(compare_, &QPushButton::clicked, this, &ResultsPanel::CompareAsked);
  connect(howSure_, &QPushButton::clicked, this, &ResultsPanel::HowSureAsked);
  connect(previous_, &QPushButton::clicked, this, &ResultsPanel::PreviousAsked);
  connect(report_, &QToolButton::clicked, this, &ResultsPanel::ReportAsked);
}

void ResultsPanel::Append(const std::string& text) {
  QTextCursor end(text_->document());
  end.movePosition(QTextCursor::End);
  end.insertText(QString::fromStdString(text));
}

void ResultsPanel::Clear() {
  text_->clear();
  ShowSummary({});
}

void ResultsPanel::ShowSummary(std::vector<SummaryLine> lines) {
  summary_->setVisible(!lines.empty());
  summary_->SetLines(std::move(lines));
}

bool ResultsPanel::ShowsSummary() const {
  return !summary_->isHidden();
}

void ResultsPanel::SetReturnable(bool returnable) {
  previous_->setVisible(returnable);
}

void ResultsPanel::SetComparable(bool comparable) {
  comparable_ = comparable;
  Show();
}

void ResultsPanel::SetAvailable(bool available) {
  available_ = available;
  Show();
}

void ResultsPanel::SetDirection(Direction direction) {
  direction_ = direction;
  Show();
}

void ResultsPanel::SetRunning(bool running) {
  running_ = running;
  Show();
}

void ResultsPanel::SetLanguage(Language language) {
  language_ = language;
  Show();
}

void ResultsPanel::TakeKeyboard() {
  report_->setFocus();
}

void ResultsPanel::Show() {
  const bool initial = direction_ == Direction::ToInitial;
  toggle_->setIcon(DrawnIcon(initial ? Symbol::Initial : Symbol::Forward));
  toggle_->setToolTip(Caption(initial ? TextId::ToInitial : TextId::ToEstimated, language_));
  toggle_->setAccessibleName(toggle_->toolTip());
  toggle_->setEnabled(available_ && !running_);
  report_->setEnabled(available_ && !running_);
  clear_->setEnabled(!running_);
  summary_->setToolTip(Caption(TextId::SummaryDigits, language_));
  summary_->setAccessibleName(Caption(TextId::SummaryHeading, language_));
  improve_->setText(Caption(TextId::Improve, language_));
  improve_->setToolTip(Caption(TextId::ImproveHint, language_));
  improve_->setEnabled(available_ && !running_);
  howSure_->setText(Caption(TextId::HowSure, language_));
  howSure_->setToolTip(Caption(TextId::HowSureHint, language_));
  howSure_->setEnabled(available_ && !running_);
  previous_->setText(Caption(TextId::PreviousValues, language_));
  previous_->setToolTip(Caption(TextId::PreviousValuesHint, language_));
  previous_->setEnabled(!running_);
  compare_->setText(Caption(TextId::CompareModels, language_));
  compare_->setToolTip(
      Caption(comparable_ ? TextId::CompareModelsHint : TextId::ComparisonNeeds, language_));
  compare_->setEnabled(comparable_ && !running_);
}

}  // namespace velmora
