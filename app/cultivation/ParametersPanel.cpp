#include "app/cultivation/ParametersPanel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ModelHelp.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "kinetics/Modelos.h"

namespace velmora {
namespace {

constexpr int kValueWidth = 128;  // thirteen decimals
constexpr int kBoundWidth = 64;
enum Column { kTick, kName, kValue, kLowerBound, kUpperBound, kUnit };

bool HasUnit(At position) {
  return !UnitOf(position, kModels.front()).empty();
}

bool EmptyOrZero(const NumberBox& box) {
  const QString text = box.text();
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u'0' || !c.isDigit(); });
}

}  // namespace

std::array<QWidget*, 6> ParametersPanel::Row::All() const {
  return {tick, name, value, lower, upper, unit};
}

ParametersPanel::ParametersPanel(QWidget* parent) : QGroupBox(parent) {
  setObjectName(QStringLiteral("frameParametros"));
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i] = NewRow(i);
  LayOut();
  Wire();
  SetModel(kModels.front());
}

ParametersPanel::Row ParametersPanel::NewRow(std::size_t index) {
  const Parameter& parameter = kFittable[index];
  const QString name = Utf8(parameter.name);
  const int number = static_cast<int>(index) + 1;
  Row row;
  row.tick = Named<QCheckBox>(QStringLiteral("chk") + name, this);
  row.name = NewLabel(QStringLiteral("lbl") + name, Utf8(parameter.symbol), this);
  row.value = new NumberBox(QStringLiteral("txt") + name, this);
  row.lower = new NumberBox(MemberName("txtLimInf", number), this);
  row.upper = new NumberBox(MemberName("txtLimSup", number), this);
  const char* const units = HasUnit(parameter.position) ? "lblUnidConc" : "lblSemUnid";
  row.unit = NewLabel(MemberName(units, number - 1), QStringLiteral("–"), this);
  row.name->setBuddy(row.value);
  row.value->setMinimumWidth(kValueWidth);
  for (NumberBox* const bound : {row.lower, row.upper}) bound->setMinimumWidth(kBoundWidth);
  return row;
}

void ParametersPanel::LayOut() {
  auto* const grid = new QGridLayout(this);
  TightenInside(*grid);
  grid->setVerticalSpacing(kSpacing / 2);
  grid->addWidget(Named<QLabel>("lblLimInf", this), 0, kLowerBound);
  grid->addWidget(Named<QLabel>("lblLimSup", this), 0, kUpperBound);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    int column = kTick;
    for (QWidget* const part : rows_[i].All())
      grid->addWidget(part, static_cast<int>(i) + 1, column++);
  }
  grid->setColumnStretch(kValue, 3);
  grid->setColumnStretch(kLowerBound, 2);
  grid->setColumnStretch(kUpperBound, 2);
}

void ParametersPanel::Wire() {
  for (const Row& row : rows_) {
    connect(row.tick, &QCheckBox::clicked, this, [this] {
      ExplainBounds();
      emit Edited();
    });
    for (NumberBox* const box : {row.value, row.lower, row.upper})
      connect(box, &QLineEdit::textEdited, this, [this] { emit Edited(); });
  }
}

void ParametersPanel::SetModel(const Model& model) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const At position = kFittable[i].position;
    const bool used = Uses(model, position);
    for (QWidget* const part : rows_[i].All()) part->setEnabled(used);
    if (!used) rows_[i].tick->setChecked(false);
    if (!HasUnit(position)) continue;
    rows_[i].unit->setText(Utf8(UnitOf(position, model)));
  }
  // The unit label of Ks speaks of a concentration, which a ratio to the cells is not.
  if (model.substrate == SubstrateTerm::Contois)
    rows_[static_cast<std::size_t>(FittableIndex(At::Ks))].unit->setEnabled(false);
}

void ParametersPanel::SetValues(const CultivationForm& form) {
  for (const Parameter& parameter : kFittable)
    SetValue(parameter.position, form.At(parameter.position), NumberBox::Mark::None);
}

void ParametersPanel::SetFit(const FitRows& fit) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    rows_[i].tick->setChecked(fit[i].ticked && rows_[i].tick->isEnabledTo(this));
    // What stays as it stands keeps its mark.
    if (rows_[i].lower->Value() != fit[i].lower) rows_[i].lower->Show(fit[i].lower);
    if (rows_[i].upper->Value() != fit[i].upper) rows_[i].upper->Show(fit[i].upper);
  }
  ExplainBounds();
}

void ParametersPanel::ExplainBounds() {
  for (const Row& row : rows_) {
    const TextId effect = row.tick->isChecked() ? TextId::BoundHelp : TextId::BoundUnused;
    for (NumberBox* const bound : {row.lower, row.upper})
      bound->setToolTip(Caption(effect, language_));
  }
}

void ParametersPanel::SetValue(At position, const Entry& entry, NumberBox::Mark mark,
                               const QString& why) {
  rows_[static_cast<std::size_t>(FittableIndex(position))].value->Show(entry, mark, why);
}

void ParametersPanel::MarkBounds(At position, const FitRow& before, const QString& why) {
  const Row& row = rows_[static_cast<std::size_t>(FittableIndex(position))];
  for (const auto& [box, entry] : {std::pair(row.lower, before.lower), {row.upper, before.upper}})
    if (box->Value() != entry) box->Show(box->Value(), NumberBox::Mark::Proposed, why);
}

void ParametersPanel::ReadInto(CultivationForm& form) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    form.At(kFittable[i].position) = rows_[i].value->Value();
    form.fit[i] = {rows_[i].tick->isChecked(), rows_[i].lower->Value(), rows_[i].upper->Value()};
  }
}

void ParametersPanel::Clear() {
  SetValues({});
  SetFit({});
}

void ParametersPanel::SetLanguage(Language language) {
  language_ = language;
  ExplainBounds();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const QString name = SpokenName(kFittable[i].position);
    const QString meaning = ParameterHelp(kFittable[i].position, language);
    rows_[i].tick->setToolTip(meaning + u'\n' + Caption(TextId::TickHelp, language));
    for (QWidget* const part : std::initializer_list<QWidget*>{rows_[i].name, rows_[i].value})
      part->setToolTip(meaning);
    rows_[i].tick->setAccessibleName(
        Utf8(Filled(TextId::FitParameter, language, {name.toStdString()})));
    rows_[i].value->setAccessibleName(name);
    rows_[i].lower->setAccessibleName(Caption(TextId::LowerBound, language) + u' ' + name);
    rows_[i].upper->setAccessibleName(Caption(TextId::UpperBound, language) + u' ' + name);
  }
}

bool ParametersPanel::FocusRow(At position) {
  const int index = FittableIndex(position);
  if (index < 0) return false;
  const Row& row = rows_[static_cast<std::size_t>(index)];
  NumberBox* target = row.value;
  for (NumberBox* const box : {row.upper, row.lower, row.value})
    if (EmptyOrZero(*box)) target = box;
  GoToBox(*target);
  return true;
}

}  // namespace velmora
