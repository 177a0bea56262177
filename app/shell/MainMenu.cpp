#include "app/shell/MainMenu.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {

using enum ItemState;

constexpr std::int16_t NumberOf(TextId id) {
  return static_cast<std::int16_t>(id);
}
constexpr std::int16_t kEditMenu = NumberOf(TextId::EditMenu), kUndo = NumberOf(TextId::Undo),
                       kRedo = NumberOf(TextId::Redo), kCut = NumberOf(TextId::Cut),
                       kPaste = NumberOf(TextId::Paste), kClear = NumberOf(TextId::ClearCells),
                       kForPublication = NumberOf(TextId::ForPublication);

// The fed-batch items, the text menu and `mnuCopiarFig` have no routine: they stay hidden.
// clang-format off
constexpr auto kMenu = std::to_array<MenuItem>({
    {"mnuArquivo",       nullptr,          100, "",            Enabled,   nullptr},
    {"mnuNovo",          "mnuArquivo",     102, "",            Enabled,   nullptr},
    {"mnuAbrirGeral",    "mnuArquivo",     105, "",            Enabled,   nullptr},
    {"mnuAbrirExp",      "mnuAbrirGeral",  101, "",            Enabled,   nullptr},
    {"mnuAbrirCond",     "mnuAbrirGeral",  119, "",            Disabled,  nullptr},
    {"mnuACondBat",      "mnuAbrirCond",   111, "",            Disabled,  nullptr},
    {"mnuACondBatAli",   "mnuAbrirCond",   112, "",            Hidden,    nullptr},
    {"mnuSalvarGeral",   "mnuArquivo",     185, "",            Enabled,   nullptr},
    {"mnuSalvarExp",     "mnuSalvarGeral", 144, "",            Disabled,  nullptr},
    {"mnuSalvarCond",    "mnuSalvarGeral", 114, "",            Disabled,  nullptr},
    {"mnuSCondBat",      "mnuSalvarCond",  111, "",            Enabled,   nullptr},
    {"mnuSCondBatAli",   "mnuSalvarCond",  112, "",            Hidden,    nullptr},
    {"mnuExcluir",       "mnuArquivo",     198, "",            Disabled,  "Ctrl+X"},
    {"mnuExportar",      "mnuArquivo",     146, "",            Enabled,   nullptr},
    {"mnuExportarDados", "mnuExportar",    131, "",            Disabled,  "Ctrl+D"},
    {"mnuEspaco",        "mnuArquivo",       0, "-",           Enabled,   nullptr},
    {"mnuSair",          "mnuArquivo",     184, "",            Enabled,   "Ctrl+S"},
    {"mnuPopup",         nullptr,            0, "Popup Menu",  Hidden,    nullptr},
    {"mnuZoom",          "mnuPopup",         0, "Zoom",        Enabled,   nullptr},
    {"mnuCopiar",        "mnuPopup",       123, "",            Enabled,   nullptr},
    {"mnuLegenda",       "mnuPopup",       152, "",            Enabled,   nullptr},
    {"mnuEditarTexto",   nullptr,            0, "&Editar",     Hidden,    nullptr},
    {"mnuDesfazer",      "mnuEditarTexto",   0, "Desfazer",    Enabled,   "Ctrl+Z"},
    {"mnuEdicao",        nullptr,    kEditMenu, "",            Enabled,   nullptr},
    {"mnuVoltar",        "mnuEdicao",    kUndo, "",            Disabled,  "Ctrl+Z"},
    {"mnuRefazer",       "mnuEdicao",    kRedo, "",            Disabled,  "Ctrl+Y"},
    {"mnuEspacoEdicao",  "mnuEdicao",        0, "-",           Enabled,   nullptr},
    {"mnuRecortar",      "mnuEdicao",     kCut, "",            Enabled,   nullptr},
    {"mnuCopiarCelulas", "mnuEdicao",      123, "",            Enabled,   nullptr},
    {"mnuColar",         "mnuEdicao",   kPaste, "",            Enabled,   nullptr},
    {"mnuLimpar",        "mnuEdicao",   kClear, "",            Enabled,   nullptr},
    {"mnuEditar",        nullptr,          138, "",            Disabled,  nullptr},
    {"mnuCopiarFig",     "mnuEditar",      123, "",            Hidden,    "Ctrl+C"},
    {"mnuLeg",           "mnuEditar",      152, "",            Enabled,   "Ctrl+L"},
    {"mnuLinhaGrade",    "mnuEditar",      157, "",            Checked,   "Ctrl+G"},
    {"mnuPublicacao",    "mnuEditar",      kForPublication, "", Unchecked, nullptr},
    {"mnuCultivo",       nullptr,          137, "",            Enabled,   nullptr},
    {"mnuBatelada",      "mnuCultivo",     111, "",            Enabled,   "Ctrl+B"},
    {"mnuBateladaAli",   "mnuCultivo",     112, "",            Hidden,    "Ctrl+A"},
    {"mnuAjuste",        nullptr,          103, "",            Enabled,   nullptr},
    {"mnuParED",         "mnuAjuste",      143, "",            Enabled,   "Ctrl+M"},
    {"mnuIdioma",        nullptr,          195, "",            Enabled,   nullptr},
    {"mnuPort",          "mnuIdioma",      193, "",            Unchecked, "Ctrl+P"},
    {"mnuIngles",        "mnuIdioma",      194, "",            Unchecked, "Ctrl+E"},
    {"mnuAjuda",         nullptr,          104, "",            Enabled,   nullptr},
    {"mnuSobre",         "mnuAjuda",       187, "",            Enabled,   nullptr},
    {"mnuTopAjuda",      "mnuAjuda",       191, "",            Enabled,   nullptr},
});
// clang-format on

bool IsMenu(const MenuItem& item) {
  return std::any_of(kMenu.begin(), kMenu.end(), [&item](const MenuItem& other) {
    return other.parent != nullptr && std::string_view(other.parent) == item.name;
  });
}

/// Whether what is typed into `receiver` is text, of a box or of a grid's cell.
bool HoldsText(const QObject* receiver) {
  return qobject_cast<const QLineEdit*>(receiver) != nullptr ||
         qobject_cast<const QTextEdit*>(receiver) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(receiver) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(receiver) != nullptr ||
         qobject_cast<const QAbstractItemView*>(receiver) != nullptr;
}

bool TakesBackInside(const QKeyEvent& key, const QObject* receiver) {
  const auto* const box = qobject_cast<const QLineEdit*>(receiver);
  if (box == nullptr) return false;
  return (key.matches(QKeySequence::Undo) && box->isUndoAvailable()) ||
         (key.matches(QKeySequence::Redo) && box->isRedoAvailable());
}

}  // namespace

std::span<const MenuItem> MenuItems() {
  return kMenu;
}

MainMenu::MainMenu(QMainWindow& frame) : QObject(&frame) {
  for (const MenuItem& item : kMenu) Add(frame, item);
  qApp->installEventFilter(this);
}

void MainMenu::Add(QMainWindow& frame, const MenuItem& item) {
  QAction* action;
  if (IsMenu(item)) {
    auto* const menu = new QMenu(&frame);
    menu->setObjectName(QLatin1StringView(item.name));
    connect(menu, &QMenu::aboutToShow, this, &MainMenu::Opening);
    action = menu->menuAction();
  } else {
    action = new QAction(&frame);
  }
  action->setObjectName(QLatin1StringView(item.name));
  if (std::string_view(item.fixedText) == "-")
    action->setSeparator(true);
  else
    action->setText(QString::fromUtf8(item.fixedText));
  action->setCheckable(item.state == Checked || item.state == Unchecked);
  action->setChecked(item.state == Checked);
  action->setEnabled(item.state != Disabled);
  action->setVisible(item.state != Hidden);
  if (item.shortcut != nullptr) action->setShortcut(QString::fromUtf8(item.shortcut));
  items_.insert(item.name, action);
  if (item.parent != nullptr)
    Menu(item.parent).addAction(action);
  else
    frame.menuBar()->addAction(action);
}

QAction& MainMenu::Item(const char* name) const {
  QAction* const action = items_.value(name);
  assert(action != nullptr);
  return *action;
}

QMenu& MainMenu::Menu(const char* name) const {
  QMenu* const menu = Item(name).menu<QMenu*>();
  assert(menu != nullptr);
  return *menu;
}

void MainMenu::SetLanguage(Language language) {
  for (const MenuItem& item : kMenu)
    if (item.caption != 0) Item(item.name).setText(Caption(TextId{item.caption}, language));
}

bool MainMenu::IsTableShortcut(const QKeySequence& keys) const {
  return std::any_of(items_.begin(), items_.end(), [&keys](const QAction* action) {
    return action->isVisible() && action->shortcut() == keys;
  });
}

bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || !HoldsText(watched)) return false;
  auto* const key = static_cast<QKeyEvent*>(event);
  // A box takes back what was typed into it before the menu takes back anything else.
  if (TakesBackInside(*key, watched)) {
    key->accept();
    return true;
  }
  // An accepted override gives the key to the box, an ignored one to the menu. Left to themselves,
  // boxes that cannot be edited give Ctrl+X away, and all take Ctrl+D and Ctrl+E.
  if (key->matches(QKeySequence::Cut)) {
    key->accept();
    return true;
  }
  if (!IsTableShortcut(key->keyCombination())) return false;
  key->ignore();
  return true;
}

}  // namespace velmora
