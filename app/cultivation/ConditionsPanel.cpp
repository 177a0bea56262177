#include "app/cultivation/ConditionsPanel.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

enum Frame : std::uint8_t { kStart, kYields, kCells, kProduction };
constexpr std::array<const char*, 4> kFrameNames = {"frameCondInic", "frameCoefRend",
                                                    "frameCondCultivo", "frameCinProd"};

struct BoxRow {
  Frame frame;
  At position;
  const char* box;
  const char* label;
  std::int16_t description;  // text id
};
constexpr auto kBoxes = std::to_array<BoxRow>({
    {kStart, At::Cx0, "txtCx", "lblCx", 434},
    {kStart, At::Cs0, "txtCs", "lblCs", 435},
    {kStart, At::Cp0, "txtCp", "lblCp", 436},
    {kStart, At::T, "txtTempo", "lblTempo", 437},
    {kYields, At::Yxs, "txtYxs", "lblYxs", 438},
    {kYields, At::YpsTyped, "txtYps", "lblYps", 439},
    {kCells, At::ms, "txtms", "lblms", 440},
    {kCells, At::Kd, "txtkd", "lblkd", 441},
    {kCells, At::Kdp, "txtkdp", "lblkdp", 442},
    {kCells, At::CsAst1, "txtCs1", "lblCs1", 443},
    {kProduction, At::alpha, "txtAlfa", "lblAlfa", 444},
    {kProduction, At::beta, "txtBeta", "lblBeta", 445},
    {kProduction, At::CsAst2, "txtCs2", "lblCs2", 446},
});
constexpr std::array<RadioOption, 2> kYieldOptions = {
    {{static_cast<int>(Yields::Stoichiometric), "optEsteq"},
     {static_cast<int>(Yields::Global), "optGlobal"}}};

constexpr int kBoxesInARow = 2;
constexpr int kColumnsOfABox = 3;  // label, box, unit
constexpr int kLabelWidth = 30;
constexpr int kUnitWidth = 50;

}  // namespace

ConditionsPanel::ConditionsPanel(QWidget* parent) : QWidget(parent) {
  Build();
  LayOut();
  Wire();
  AllowEntry();
}

void ConditionsPanel::Build() {
  for (std::size_t i = 0; i < frames_.size(); ++i)
    frames_[i] = Named<QGroupBox>(kFrameNames[i], this);
  for (const BoxRow& row : kBoxes) {
    QWidget* const frame = frames_[row.frame];
    Box box{row.position, new NumberBox(QLatin1StringView(row.box), frame),
            NewLabel(QLatin1StringView(row.label), Utf8(ParameterAt(row.position).symbol), frame),
            NewLabel(QStringLiteral("lblUnid_%1").arg(QLatin1StringView(row.box)),
                     Utf8(ParameterAt(row.position).unit), frame)};
    box.label->setBuddy(box.box);
    box.label->setMinimumWidth(kLabelWidth);
    box.unit->setMinimumWidth(kUnitWidth);
    boxes_.push_back(box);
  }
  yields_ = new OptionGroup(kYieldOptions, frames_[kYields]);
  yields_->Choose(static_cast<int>(Yields::Stoichiometric));
}

void ConditionsPanel::LayOut() {
  auto* const all = new QVBoxLayout(this);
  Tighten(*all);
  std::array<QGridLayout*, kFrames> grids{};
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    grids[i] = new QGridLayout(frames_[i]);
    TightenInside(*grids[i]);
    for (int j = 0; j < kBoxesInARow; ++j) grids[i]->setColumnStretch(j * kColumnsOfABox + 1, 1);
    all->addWidget(frames_[i]);
  }
  std::array<int, kFrames> filled{};
  for (std::size_t i = 0; i < kBoxes.size(); ++i) {
    const Frame frame = kBoxes[i].frame;
    const int cell = filled[frame]++;
    const int row = cell / kBoxesInARow;
    const int column = cell % kBoxesInARow * kColumnsOfABox;
    grids[frame]->addWidget(boxes_[i].label, row, column);
    grids[frame]->addWidget(boxes_[i].box, row, column + 1);
    grids[frame]->addWidget(boxes_[i].unit, row, column + 2);
  }
  QWidget* before = Find(At::YpsTyped)->box;
  int column = 0;
  for (QAbstractButton* const option : yields_->buttons()) {
    grids[kYields]->addWidget(option, 1, column, 1, kColumnsOfABox);
    setTabOrder(before, option);
    before = option;
    column += kColumnsOfABox;
  }
}

void ConditionsPanel::Wire() {
  for (const Box& each : boxes_)
    connect(each.box, &QLineEdit::textEdited, this, [this] { emit Edited(); });
  connect(yields_, &QButtonGroup::idClicked, this, [this] {
    AllowEntry();
    emit Edited();
  });
}

const ConditionsPanel::Box* ConditionsPanel::Find(At position) const {
  const auto found = std::find_if(boxes_.begin(), boxes_.end(),
                                  [=](const Box& each) { return each.position == position; });
  return found == boxes_.end() ? nullptr : &*found;
}

void ConditionsPanel::SetForm(const CultivationForm& form) {
  for (const Box& each : boxes_) each.box->Show(form.At(each.position));
  yields_->Choose(static_cast<int>(form.yields));
  SetProduction(form.production);
}

void ConditionsPanel::ReadInto(CultivationForm& form) const {
  for (const Box& each : boxes_) form.At(each.position) = each.box->Value();
  form.yields = ChosenYields();
}

Yields ConditionsPanel::ChosenYields() const {
  return static_cast<Yields>(yields_->Chosen());
}

void ConditionsPanel::SetBox(At position, const Entry& entry, NumberBox::Mark mark,
                             const QString& why) {
  if (const Box* const each = Find(position)) each->box->Show(entry, mark, why);
}

void ConditionsPanel::SetProduction(Production production) {
  production_ = production;
  AllowEntry();
}

/// Alpha is entered unless production is not associated with growth or the global yields give it;
/// beta and the concentration from which it acts, unless production is associated with growth
/// alone.
void ConditionsPanel::AllowEntry() {
  const bool alpha = production_ != Production::PNAC && ChosenYields() != Yields::Global;
  const bool beta = production_ != Production::PAC;
  const auto allow = [this](At position, bool on) {
    const Box* const each = Find(position);
    for (QWidget* const part : std::initializer_list<QWidget*>{each->label, each->box, each->unit})
      part->setEnabled(on);
  };
  allow(At::alpha, alpha);
  allow(At::beta, beta);
  allow(At::CsAst2, beta);
  ExplainConstants();
}

void ConditionsPanel::ExplainConstants() {
  for (std::size_t i = 0; i < kBoxes.size(); ++i) {
    const Box& each = boxes_[i];
    QString tip = Caption(TextId{kBoxes[i].description}, language_);
    const bool zero = each.box->text().isEmpty() || each.box->text() == QStringLiteral("0");
    if (each.position == At::beta && !each.box->isEnabledTo(this) && !zero)
      tip += u'\n' + QString::fromStdString(Filled(TextId::StillEnters, language_,
                                                   {each.label->text().toStdString()}));
    each.box->setToolTip(tip);
  }
}

void ConditionsPanel::Clear() {
  for (const Box& each : boxes_) each.box->Show({});
}

void ConditionsPanel::SetLanguage(Language language) {
  language_ = language;
  ExplainConstants();
  for (std::size_t i = 0; i < kBoxes.size(); ++i) {
    const QString description = Caption(TextId{kBoxes[i].description}, language);
    boxes_[i].label->setToolTip(description);
    boxes_[i].unit->setToolTip(description);
  }
}

bool ConditionsPanel::FocusBox(At position) {
  const Box* const each = Find(position);
  if (each == nullptr) return false;
  GoToBox(*each->box);
  return true;
}

}  // namespace velmora
