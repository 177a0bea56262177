#include "app/experiments/ActionsPanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <limits>
#include <utility>

#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

using enum ExperimentAction;

constexpr QSize kNextStepIcon(32, 24);  // px
constexpr int kPlaceDigits = 8;         // or as many letters of its hint
constexpr int kGroupSpacing = 18;       // px, between groups of buttons

struct ButtonRow {
  ExperimentAction action;
  const char* name;
  Symbol symbol;
};
constexpr std::array<ButtonRow, 8> kButtons = {{{Insert, "cmdInserir", Symbol::NewSheet},
                                                {Save, "cmdSalvar", Symbol::Diskette},
                                                {Clear, "cmdLimparTexto", Symbol::Eraser},
                                                {ViewGraphs, "cmdGrafico", Symbol::GrowthCurve},
                                                {GridLines, "cdmLinhasGrade", Symbol::Grid},
                                                {Legend, "cdmLegenda", Symbol::Legend},
                                                {Delete, "cmdExcluir", Symbol::Bin},
                                                {NextStep, "cdmNextEtapa", Symbol::NextStep}}};

const QString kNextStepLook = QStringLiteral(
    "QToolButton { background: #2e8b57; border: 1px solid #226b42; border-radius: 5px; "
    "padding: 2px 14px; } QToolButton:hover { background: #37a368; } "
    "QToolButton:pressed { background: #226b42; } QToolButton:focus { border: 2px solid black; }");

}  // namespace

ActionsPanel::ActionsPanel(QWidget* parent)
    : QWidget(parent),
      nextStep_(Named<QLabel>("lblProxEtapa", this)),
      place_(Named<QLineEdit>("txtExcluir", this)) {
  BuildButtons();
  LayOut();
  Wire();
  EndDeleting();
}

void ActionsPanel::BuildButtons() {
  for (const ButtonRow& row : kButtons) {
    buttons_[static_cast<std::size_t>(row.action)] = NewFlatButton(row.name, row.symbol, this);
  }
  Button(GridLines).setCheckable(true);
  Button(Legend).setCheckable(true);
  Button(NextStep).setAutoRaise(false);
  Button(NextStep).setIconSize(kNextStepIcon);
  Button(NextStep).setStyleSheet(kNextStepLook);
}

QToolButton& ActionsPanel::Button(ExperimentAction action) const {
  return *buttons_[static_cast<std::size_t>(action)];
}

void ActionsPanel::LayOut() {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  for (const ExperimentAction action : {Insert, Save, Clear}) layout->addWidget(&Button(action));
  layout->addSpacing(kGroupSpacing);
  layout->addLayout(DeletionRow());
  layout->addSpacing(kGroupSpacing);
  for (const ExperimentAction action : {ViewGraphs, GridLines, Legend})
    layout->addWidget(&Button(action));
  layout->addStretch(1);
  layout->addWidget(nextStep_);
  layout->addWidget(&Button(NextStep));
}

QBoxLayout* ActionsPanel::DeletionRow() {
  auto* const row = new QHBoxLayout;
  question_ = Named<QLabel>("lblDesejaExcluir", this);
  row->addWidget(question_);
  for (std::size_t i = 0; i < deleting_.size(); ++i) {
    deleting_[i] = Named<QRadioButton>(MemberName("Option1", static_cast<int>(i)), this);
    row->addWidget(deleting_[i]);
  }
  place_->setFixedWidth(fontMetrics().horizontalAdvance(QString(kPlaceDigits + 2, u'0')));
  question_->setBuddy(place_);
  row->addWidget(place_);
  row->addWidget(&Button(Delete));
  return row;
}

void ActionsPanel::Wire() {
  using Place = std::numeric_limits<std::int16_t>;
  LimitToWholeNumbers(*place_, Place::min(), Place::max());
  for (const ButtonRow& row : kButtons)
    connect(&Button(row.action), &QToolButton::clicked, this,
            [this, action = row.action] { emit Wanted(action); });
  connect(place_, &QLineEdit::returnPressed, this, [this] { emit Wanted(Delete); });
  connect(place_, &QLineEdit::textChanged, this, &ActionsPanel::ExplainPlace);
  for (QRadioButton* const option : deleting_)
    connect(option, &QRadioButton::clicked, this, &ActionsPanel::ShowDeleting);
}

void ActionsPanel::ShowDeleting() {
  const bool wanted = deleting_[1]->isChecked();
  place_->setEnabled(wanted);
  Button(Delete).setEnabled(wanted);
  if (wanted) GoToPlace();
}

void ActionsPanel::SetExperiments(std::vector<std::int16_t> numbers) {
  numbers_ = std::move(numbers);
  ExplainPlace();
}

void ActionsPanel::SetLanguage(Language language) {
  language_ = language;
  place_->setPlaceholderText(Caption(TextId::PlaceHint, language));
  ExplainPlace();
}

void ActionsPanel::SetShort(bool withoutStep, bool withoutQuestion) {
  nextStep_->setVisible(!withoutStep);
  question_->setVisible(!withoutQuestion);
  for (QRadioButton* const option : deleting_)
    option->setToolTip(withoutQuestion ? question_->text() : QString());
}

void ActionsPanel::ExplainPlace() {
  const auto count = static_cast<int>(numbers_.size());
  const int place = PlaceToDelete();
  const bool known = place >= 1 && place <= count;
  const int told = known ? numbers_[static_cast<std::size_t>(place) - 1] : count;
  const TextId text = known ? TextId::DeletesExperiment : TextId::PlaceWanted;
  place_->setToolTip(QString::fromStdString(Filled(text, language_, {std::to_string(told)})));
  place_->setAccessibleName(place_->toolTip());
  Button(Delete).setText(known ? QString::number(told) : QString());
  Button(Delete).setToolButtonStyle(known ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

void ActionsPanel::SetShown(bool gridLines, bool legend) {
  Button(GridLines).setChecked(gridLines);
  Button(Legend).setChecked(legend);
}

int ActionsPanel::PlaceToDelete() const {
  return place_->text().toInt();
}

void ActionsPanel::GoToPlace() {
  GoToBox(*place_);
}

void ActionsPanel::EndDeleting() {
  deleting_[0]->setChecked(true);
  place_->clear();
  ExplainPlace();
  ShowDeleting();
}

}  // namespace velmora
