#include "app/cultivation/ChoicesPanel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

enum GroupIndex : std::uint8_t { kMethod, kDataSet, kProduction };
struct GroupNames {
  const char* frame;
  const char* unlock;
};
constexpr std::array<GroupNames, 3> kGroups = {{{"frameMetodo", "cdmTrocarAjuste"},
                                                {"frameConjDados", "cdmTrocarConjDados"},
                                                {"frameCinetProd", "cdmTrocarCinProd"}}};

constexpr std::array<RadioOption, 3> kMethods = {{{static_cast<int>(Method::Manual), "optManual"},
                                                  {static_cast<int>(Method::ED), "optED"},
                                                  {static_cast<int>(Method::LM), "optLM"}}};
constexpr std::array<RadioOption, 3> kProductions = {
    {{static_cast<int>(Production::PAC), "optPAC"},
     {static_cast<int>(Production::PPAC), "optPPAC"},
     {static_cast<int>(Production::PNAC), "optPNAC"}}};

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

void ChoicesPanel::Build() {
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    auto* const frame = Named<QGroupBox>(kGroups[i].frame, this);
    groups_[i] = {frame, new QWidget(frame), NewButton(kGroups[i].unlock, Symbol::Unlock, frame)};
  }
  methods_ = new OptionGroup(kMethods, groups_[kMethod].options);
  for (std::size_t i = 0; i < data_.size(); ++i) {
    data_[i] = Named<QCheckBox>(MemberName("chk", static_cast<int>(i)), groups_[kDataSet].options);
    data_[i]->setChecked(true);
  }
  productions_ = new OptionGroup(kProductions, groups_[kProduction].options);
}

void ChoicesPanel::LayOut() {
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  for (const Group& group : groups_) {
    const bool inRows = &group == &groups_[kProduction];
    auto* const options =
        new QBoxLayout(inRows ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, group.options);
    Tighten(*options);
    options->setSpacing(inRows ? kSpacing / 2 : 2 * kSpacing);
    for (QAbstractButton* const option : group.options->findChildren<QAbstractButton*>()) {
      options->addWidget(option);
      setTabOrder(option, group.unlock);
    }
    if (!inRows) options->addStretch();
    auto* const row = new QHBoxLayout(group.frame);
    TightenInside(*row);
    row->addWidget(group.options, 1);
    row->addWidget(group.unlock, 0, Qt::AlignVCenter);
    all->addWidget(group.frame);
  }
}

void ChoicesPanel::Wire() {
  for (OptionGroup* const options : {methods_, productions_})
    connect(options, &QButtonGroup::idClicked, this, [this] { emit Edited(); });
  for (QCheckBox* const box : data_)
    connect(box, &QCheckBox::clicked, this, [this] { emit Edited(); });
  for (Group& group : groups_)
    connect(group.unlock, &QToolButton::clicked, this, [&group] { group.SetFixed(false); });
}

void ChoicesPanel::SetForm(const CultivationForm& form) {
  methods_->Choose(static_cast<int>(form.method));
  productions_->Choose(static_cast<int>(form.production));
  for (std::size_t i = 0; i < data_.size(); ++i)
    data_[i]->setChecked(form.dataSet[data_.size() - 1 - i]);
}

void ChoicesPanel::ReadInto(CultivationForm& form) const {
  form.method = static_cast<Method>(methods_->Chosen());
  form.production = static_cast<Production>(productions_->Chosen());
  for (std::size_t i = 0; i < data_.size(); ++i)
    form.dataSet[data_.size() - 1 - i] = data_[i]->isChecked();
}

void ChoicesPanel::SetFixed(bool fixed) {
  for (Group& group : groups_) group.SetFixed(fixed && group.HasChoice());
}

}  // namespace velmora
