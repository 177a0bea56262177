#include "app/charts/ZoomButtons.h"

#include <QHBoxLayout>

#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr int kGroupSpacing = 18;  // px, between groups of buttons

struct ButtonRow {
  ZoomAction action;
  const char* name;
  Symbol symbol;
  bool toggles;
  bool startsGroup;
};
// clang-format off
constexpr std::array<ButtonRow, 13> kButtons = {{
    {ZoomAction::Title,       "cmdInsTitulo",  Symbol::Title,       true,  false},
    {ZoomAction::Legend,      "cmdInsLegenda", Symbol::Legend,      true,  false},
    {ZoomAction::GridLines,   "cmdInsLinhas",  Symbol::Grid,        true,  false},
    {ZoomAction::Range,       "cmdInsInterv",  Symbol::Range,       false, false},
    {ZoomAction::Copy,        "cmdCopiar",     Symbol::Copy,        false, true},
    {ZoomAction::Save,        "cmdSalvar",     Symbol::Diskette,    false, false},
    {ZoomAction::Print,       "cmdImprimir",   Symbol::Printer,     false, false},
    {ZoomAction::Preview,     "cmdVisualizar", Symbol::Preview,     false, false},
    {ZoomAction::Publication, "cmdPublicacao", Symbol::Publication, true,  true},
    {ZoomAction::Logarithm,   "cmdLogaritmo",  Symbol::Logarithm,   true,  false},
    {ZoomAction::Residuals,   "cmdResiduos",   Symbol::Residuals,   true,  false},
    {ZoomAction::Whole,       "cmdTudo",       Symbol::WholeChart,  false, false},
    {ZoomAction::Close,       "cmdFechar",     Symbol::Close,       false, true},
}};
// clang-format on

}  // namespace

ZoomButtons::ZoomButtons(QWidget* parent) : QWidget(parent) {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  for (const ButtonRow& row : kButtons) {
    QToolButton* const button = NewFlatButton(row.name, row.symbol, this);
    button->setCheckable(row.toggles);
    connect(button, &QToolButton::clicked, this,
            [this, action = row.action] { emit Wanted(action); });
    if (row.startsGroup) layout->addSpacing(kGroupSpacing);
    if (row.action == ZoomAction::Close) layout->addStretch();
    layout->addWidget(button);
    buttons_[static_cast<std::size_t>(row.action)] = button;
  }
}

QToolButton& ZoomButtons::Button(ZoomAction action) const {
  return *buttons_[static_cast<std::size_t>(action)];
}

void ZoomButtons::SetShown(ZoomAction action, bool shown) {
  Button(action).setChecked(shown);
}

void ZoomButtons::SetUsable(ZoomAction action, bool usable) {
  Button(action).setEnabled(usable);
}

}  // namespace velmora
