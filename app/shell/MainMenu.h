// The menu tree of the frame window, built from one table.
#pragma once

#include <QAction>
#include <QHash>
#include <QObject>
#include <cstdint>
#include <span>

#include "language/Texts.h"

class QMainWindow;
class QMenu;

namespace velmora {

enum class ItemState : std::uint8_t { Enabled, Disabled, Hidden, Unchecked, Checked };

/// One line of the menu table. A line that others name as their parent is a menu.
struct MenuItem {
  const char* name;       // objectName of the action, and of the menu that it opens
  const char* parent;     // the menu in which it stands; nullptr for the menu bar
  std::int16_t caption;   // text id; 0 where the text is fixed
  const char* fixedText;  // UTF-8; "-" is a separator
  ItemState state;        // at the start
  const char* shortcut;   // nullptr where it has none
};

/// The menu table, in the order in which the items stand.
std::span<const MenuItem> MenuItems();

/// Builds the menus into the frame's menu bar; without captions. Where a text box or
/// a grid has the focus, Ctrl+X cuts there; every other shortcut of the table goes to the menu.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  explicit MainMenu(QMainWindow& frame);

  /// The action with this name; the name must stand in the table.
  QAction& Item(const char* name) const;
  /// The menu with this name.
  QMenu& Menu(const char* name) const;

  void SetLanguage(Language language);

 signals:
  /// A menu is about to be shown.
  void Opening();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Add(QMainWindow& frame, const MenuItem& item);
  bool IsTableShortcut(const QKeySequence& keys) const;

  QHash<QByteArray, QAction*> items_;
};

}  // namespace velmora
