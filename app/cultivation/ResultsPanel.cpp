#include "app/cultivation/ResultsPanel.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
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
  row->addWidget(text_, 1);
  row->addLayout(buttons);
}

void ResultsPanel::Wire() {
  connect(clear_, &QToolButton::clicked, this, &ResultsPanel::Clear);
  connect(toggle_, &QToolButton::clicked, this, &ResultsPanel::ToggleAsked);
  connect(report_, &QToolButton::clicked, this, &ResultsPanel::ReportAsked);
}

void ResultsPanel::Append(const std::string& text) {
  QScrollBar& bar = *text_->verticalScrollBar();
  const bool atEnd = bar.value() == bar.maximum();
  QTextCursor end(text_->document());
  end.movePosition(QTextCursor::End);
  end.insertText(QString::fromStdString(text));
  if (atEnd) bar.setValue(bar.maximum());
}

void ResultsPanel::Clear() {
  text_->clear();
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

void ResultsPanel::Show() {
  const bool initial = direction_ == Direction::ToInitial;
  toggle_->setIcon(DrawnIcon(initial ? Symbol::Initial : Symbol::Forward));
  toggle_->setToolTip(Caption(initial ? TextId::ToInitial : TextId::ToEstimated, language_));
  toggle_->setAccessibleName(toggle_->toolTip());
  toggle_->setEnabled(available_ && !running_);
  report_->setEnabled(available_ && !running_);
  clear_->setEnabled(!running_);
}

}  // namespace velmora
