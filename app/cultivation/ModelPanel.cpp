#include "app/cultivation/ModelPanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

QString NameOf(const Model& model) {
  return QString::fromUtf8(model.name.data(), static_cast<qsizetype>(model.name.size()));
}

}  // namespace

ModelPanel::ModelPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
  SetModel(kModels.front(), false);
}

void ModelPanel::Build() {
  frame_ = NewFrame(QStringLiteral("frameModelo"), this);
  list_ = new QComboBox(frame_);
  list_->setObjectName(QStringLiteral("cmbModelo"));
  list_->setMaxVisibleItems(static_cast<int>(kModels.size()));
  for (const Model& model : kModels) {
    list_->addItem(NameOf(model));
    list_->setItemData(list_->count() - 1, QString::fromStdString(Equation(model)),
                       Qt::ToolTipRole);
  }
  confirm_ = NewButton(QStringLiteral("cmdConfirmarModelo"), Symbol::Confirm, frame_);
  unlock_ = NewButton(QStringLiteral("cdmTrocarModelo"), Symbol::Unlock, frame_);
  heading_ = NewLabel(QStringLiteral("lblModelo"), {}, frame_);
  chosen_ = NewLabel(QStringLiteral("lblModeloEscolhido"), {}, frame_);
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
  auto* const inside = new QVBoxLayout(frame_);
  TightenInside(*inside);
  inside->addLayout(row);
  inside->addLayout(name);
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  all->addWidget(frame_);
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
  const QString equation = QString::fromStdString(Equation(Chosen()));
  list_->setToolTip(equation);
  chosen_->setToolTip(equation);
  heading_->setToolTip(equation);
}

void ModelPanel::SetLanguage(Language language) {
  confirm_->setToolTip(Caption(TextId::ConfirmModel, language));
  confirm_->setAccessibleName(Caption(TextId::ConfirmModel, language));
  list_->setAccessibleName(Caption(TextId::GrowthKinetics, language));
}

}  // namespace velmora
