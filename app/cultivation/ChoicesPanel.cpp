#include "app/cultivation/ChoicesPanel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

struct Option {
  int id;
  const char* name;
};
constexpr std::array<Option, 3> kMethods = {{{static_cast<int>(Method::Manual), "optManual"},
                                             {static_cast<int>(Method::ED), "optED"},
                                             {static_cast<int>(Method::LM), "optLM"}}};
constexpr std::array<Option, 3> kProductions = {{{static_cast<int>(Production::PAC), "optPAC"},
                                                 {static_cast<int>(Production::PPAC), "optPPAC"},
                                                 {static_cast<int>(Production::PNAC), "optPNAC"}}};

void AddOptions(QButtonGroup& group, const std::array<Option, 3>& options, QWidget* parent) {
  for (const Option& option : options) {
    auto* const button = new QRadioButton(parent);
    button->setObjectName(QLatin1StringView(option.name));
    group.addButton(button, option.id);
  }
}

/// Chooses the option with this id, or none where there is no such option.
void Choose(QButtonGroup& group, int id) {
  if (QAbstractButton* const button = group.button(id)) {
    button->setChecked(true);
    return;
  }
  group.setExclusive(false);
  for (QAbstractButton* const button : group.buttons()) button->setChecked(false);
  group.setExclusive(true);
}

int ChosenIn(const QButtonGroup& group) {
  return std::max(group.checkedId(), 0);
}

}  // namespace

void ChoicesPanel::Group::SetFixed(bool fixed) {
  options->setEnabled(!fixed);
  unlock->setEnabled(fixed);
}

bool ChoicesPanel::Group::HasChoice() const {
  const auto all = options->findChildren<QAbstractButton*>();
  return std::any_of(all.begin(), all.end(),
                     [](const QAbstractButton* option) { return option->isChecked(); });
}

ChoicesPanel::ChoicesPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
  SetFixed(false);
}

ChoicesPanel::Group ChoicesPanel::NewGroup(const QString& frame, const QString& unlock) {
  Group group;
  group.frame = NewFrame(frame, this);
  group.options = new QWidget(group.frame);
  group.unlock = NewButton(unlock, Symbol::Unlock, group.frame);
  return group;
}

void ChoicesPanel::Build() {
  method_ = NewGroup(QStringLiteral("frameMetodo"), QStringLiteral("cdmTrocarAjuste"));
  AddOptions(methods_, kMethods, method_.options);
  dataSet_ = NewGroup(QStringLiteral("frameConjDados"), QStringLiteral("cdmTrocarConjDados"));
  for (std::size_t i = 0; i < data_.size(); ++i) {
    data_[i] = new QCheckBox(dataSet_.options);
    data_[i]->setObjectName(MemberName(QLatin1StringView("chk"), static_cast<int>(i)));
    data_[i]->setChecked(true);
  }
  production_ = NewGroup(QStringLiteral("frameCinetProd"), QStringLiteral("cdmTrocarCinProd"));
  AddOptions(productions_, kProductions, production_.options);
}

void ChoicesPanel::LayOut() {
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  for (Group* const group : Groups()) {
    const bool inRows = group == &production_;
    auto* const options =
        new QBoxLayout(inRows ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, group->options);
    Tighten(*options);
    options->setSpacing(inRows ? kSpacing / 2 : 2 * kSpacing);
    for (QAbstractButton* const option : group->options->findChildren<QAbstractButton*>()) {
      options->addWidget(option);
      setTabOrder(option, group->unlock);
    }
    if (!inRows) options->addStretch();
    auto* const row = new QHBoxLayout(group->frame);
    TightenInside(*row);
    row->addWidget(group->options, 1);
    row->addWidget(group->unlock, 0, Qt::AlignVCenter);
    all->addWidget(group->frame);
  }
}

void ChoicesPanel::Wire() {
  for (QButtonGroup* const group : {&methods_, &productions_})
    connect(group, &QButtonGroup::idClicked, this, [this] { emit Edited(); });
  for (QCheckBox* const box : data_)
    connect(box, &QCheckBox::clicked, this, [this] { emit Edited(); });
  for (Group* const group : Groups())
    connect(group->unlock, &QToolButton::clicked, this, [group] { group->SetFixed(false); });
}

void ChoicesPanel::SetForm(const CultivationForm& form) {
  Choose(methods_, static_cast<int>(form.method));
  Choose(productions_, static_cast<int>(form.production));
  for (std::size_t i = 0; i < data_.size(); ++i) data_[i]->setChecked(form.dataSet[i]);
}

void ChoicesPanel::ReadInto(CultivationForm& form) const {
  form.method = static_cast<Method>(ChosenIn(methods_));
  form.production = static_cast<Production>(ChosenIn(productions_));
  for (std::size_t i = 0; i < data_.size(); ++i) form.dataSet[i] = data_[i]->isChecked();
}

void ChoicesPanel::SetFixed(bool fixed) {
  for (Group* const group : Groups()) group->SetFixed(fixed && group->HasChoice());
}

void ChoicesPanel::SetLanguage(Language language) {
  dataSet_.unlock->setToolTip(Caption(TextId::ChangeDataSet, language));
  dataSet_.unlock->setAccessibleName(Caption(TextId::ChangeDataSet, language));
}

}  // namespace velmora
