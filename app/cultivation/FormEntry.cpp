#include "app/cultivation/FormEntry.h"

#include <QWidget>

#include "app/cultivation/ChoicesPanel.h"
#include "app/cultivation/ConditionsPanel.h"
#include "app/cultivation/ModelPanel.h"
#include "app/cultivation/ParametersPanel.h"
#include "app/widgets/Idiomas.h"

namespace velmora {

QString SpokenName(At position) {
  return Utf8(ParameterAt(position).label).remove(QStringLiteral(" ="));
}

FormEntry::FormEntry(QWidget* parent)
    : QObject(parent),
      choices_(new ChoicesPanel(parent)),
      model_(new ModelPanel(parent)),
      conditions_(new ConditionsPanel(parent)),
      parameters_(new ParametersPanel(parent)) {
  Wire();
  MarkStored();
}

void FormEntry::Wire() {
  connect(choices_, &ChoicesPanel::Edited, this, [this] {
    conditions_->SetProduction(Form().production);
    emit Edited();
  });
  connect(model_, &ModelPanel::Edited, this, [this] {
    parameters_->SetModel(model_->Chosen());
    emit Edited();
  });
  connect(conditions_, &ConditionsPanel::Edited, this, &FormEntry::Edited);
  connect(parameters_, &ParametersPanel::Edited, this, &FormEntry::Edited);
}

QWidget* FormEntry::Choices() const {
  return choices_;
}
QWidget* FormEntry::Model() const {
  return model_;
}
QWidget* FormEntry::Conditions() const {
  return conditions_;
}
QWidget* FormEntry::Parameters() const {
  return parameters_;
}

std::array<QWidget*, 4> FormEntry::Panels() const {
  return {choices_, model_, conditions_, parameters_};
}

void FormEntry::SetStored(const CultivationForm& form, const velmora::Model* model) {
  choices_->SetForm(form);
  model_->SetModel(model != nullptr ? *model : model_->Chosen(), model != nullptr);
  conditions_->SetForm(form);
  parameters_->SetModel(model_->Chosen());
  parameters_->SetValues(form);
  parameters_->SetFit(form.fit);
  MarkStored();
}

CultivationForm FormEntry::Form() const {
  CultivationForm form;
  choices_->ReadInto(form);
  conditions_->ReadInto(form);
  parameters_->ReadInto(form);
  form.model = model_->Chosen().name;
  form.modelConfirmed = model_->Confirmed();
  return form;
}

bool FormEntry::Untouched(At position) const {
  return Form().At(position) == stored_.At(position);
}

void FormEntry::SetBox(At position, const Entry& entry, NumberBox::Mark mark) {
  const bool untouched = Untouched(position);
  if (FittableIndex(position) >= 0)
    parameters_->SetValue(position, entry, mark);
  else
    conditions_->SetBox(position, entry);
  if (untouched) stored_.At(position) = entry;
}

void FormEntry::SetProposed(const CultivationForm& form,
                            const std::vector<std::pair<At, QString>>& why) {
  const auto before = Form().fit;
  choices_->SetForm(form);
  model_->SetModel(model_->Chosen(), form.modelConfirmed);
  conditions_->SetForm(form);
  parameters_->SetModel(model_->Chosen());
  parameters_->SetValues(form);
  parameters_->SetFit(form.fit);
  for (const auto& [position, reason] : why) {
    const int index = FittableIndex(position);
    if (index < 0) {
      conditions_->SetBox(position, form.At(position), NumberBox::Mark::Proposed, reason);
      continue;
    }
    parameters_->SetValue(position, form.At(position), NumberBox::Mark::Proposed, reason);
    parameters_->MarkBounds(position, before[static_cast<std::size_t>(index)], reason);
  }
  emit Edited();
}

void FormEntry::SetModel(const velmora::Model& model) {
  model_->SetModel(model, true);
  parameters_->SetModel(model);
}

void FormEntry::Mark(At position, NumberBox::Mark mark, const QString& why) {
  parameters_->SetValue(position, Form().At(position), mark, why);
}

void FormEntry::MarkStored() {
  stored_ = Form();
  for (QWidget* const panel : Panels())
    for (NumberBox* const box : panel->findChildren<NumberBox*>()) box->Accept();
}

bool FormEntry::Changed() const {
  return !SameEntries(stored_, Form());
}

void FormEntry::SetFixed(bool fixed) {
  choices_->SetFixed(fixed);
}

void FormEntry::SetEnabled(bool enabled) {
  for (QWidget* const panel : Panels()) panel->setEnabled(enabled);
}

void FormEntry::Clear() {
  conditions_->Clear();
  parameters_->Clear();
  MarkStored();
}

void FormEntry::SetLanguage(Language language) {
  model_->SetLanguage(language);
  conditions_->SetLanguage(language);
  parameters_->SetLanguage(language);
}

QWidget& FormEntry::PanelOf(At position) const {
  if (FittableIndex(position) >= 0) return *parameters_;
  return *conditions_;
}

void FormEntry::Focus(At position) {
  if (!parameters_->FocusRow(position)) conditions_->FocusBox(position);
}

}  // namespace velmora
