#include "app/cultivation/ModelPanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/cultivation/ModelHelp.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

QString NameOf(const Model& model) {
  return Utf8(model.name);
}

}  // namespace

ModelPanel::ModelPanel(QWidget* parent) : QGroupBox(parent) {
  setObjectName(QStringLiteral("frameModelo"));
  Build();
  LayOut();
  Wire();
  SetModel(kModels.front(), false);
}

void ModelPanel::Build() {
  list_ = Named<QComboBox>("cmbModelo", this);
  list_->setMaxVisibleItems(static_cast<int>(kModels.size()));
  for (const Model& model : kModels) list_->addItem(NameOf(model));
  confirm_ = NewButton("cmdConfirmarModelo", Symbol::Confirm, this);
  unlock_ = NewButton("cdmTrocarModelo", Symbol::Unlock, this);
  heading_ = Named<QLabel>("lblModelo", this);
  chosen_ = Named<QLabel>("lblModeloEscolhido", this);
  QFont strong = chosen_->font();
  strong.setBold(true);
  chosen_->setFont(strong);
}

void ModelPanel::LayOut() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kSpacing);
  row->addWidget(list_, 1);
  row->addWidget(confirm_);
  row->addWidget(unlock_);
  auto* const name = new QHBoxLayout;
  name->setSpacing(kSpacing);
  name->addWidget(heading_);
  name->addWidget(chosen_, 1);
  auto* const all = new QVBoxLayout(this);
  TightenInside(*all);
  all->addLayout(row);
  all->addLayout(name);
}

void ModelPanel::Wire() {
  connect(list_, &QComboBox::activated, this, [this] {
    SetConfirmed(false);
    emit Edited();
  });
  connect(confirm_, &QToolButton::clicked, this, [this] {
    SetConfirmed(true);
    emit Edited();
  });
  connect(unlock_, &QToolButton::clicked, this, [this] {
    SetConfirmed(false);
    list_->setFocus();
    emit Edited();
  });
}

void ModelPanel::SetModel(const Model& model, bool confirmed) {
  list_->setCurrentText(NameOf(model));
  SetConfirmed(confirmed);
}

const Model& ModelPanel::Chosen() const {
  return kModels[static_cast<std::size_t>(list_->currentIndex())];
}

void ModelPanel::SetConfirmed(bool confirmed) {
  confirmed_ = confirmed;
  list_->setEnabled(!confirmed);
  confirm_->setEnabled(!confirmed);
  unlock_->setEnabled(confirmed);
  chosen_->setText(confirmed ? NameOf(Chosen()) : QStringLiteral("–"));
  Explain();
}

void ModelPanel::SetLanguage(Language language) {
  language_ = language;
  for (std::size_t i = 0; i < kModels.size(); ++i)
    list_->setItemData(static_cast<int>(i), DrawnModelHelp(kModels[i], language), Qt::ToolTipRole);
  Explain();
}

void ModelPanel::Explain() {
  const QString help = DrawnModelHelp(Chosen(), language_);
  for (QWidget* const each : std::initializer_list<QWidget*>{list_, chosen_, heading_}) {
    each->setToolTip(help);
    each->setWhatsThis(help);
    each->setAccessibleDescription(ModelHelp(Chosen(), language_));
  }
}

}  // namespace velmora
