#pragma once

#include <QIcon>
#include <QString>

#include <memory>

class QAction;
class QMenu;

namespace lumeroom {

class MenuItemModel;
class MenuModel;
struct MenuImage;

/// Who reads a menu's titles. Over the session bus, an underscore marks a key.
enum class MenuReader { Toolkit, SessionBus };

/// A title as plain text: neither mnemonic nor shortcut may be read out of a lamp's name.
QString menuTitle(const std::string& text, MenuReader reader = MenuReader::Toolkit);

/// The picture, sharp on dense displays too.
QIcon menuIcon(const MenuImage& image);

using Menu = std::shared_ptr<const MenuModel>;
using MenuItem = std::shared_ptr<MenuItemModel>;

/// Adds an entry for the item: a line for a separator, a submenu, which is still empty and goes
/// with the menu, or an entry that chooses the item of the model.
QAction* addMenuEntry(
    QMenu& menu, const Menu& model, const MenuItem& item, MenuReader reader = MenuReader::Toolkit);

/// Draws the picture and the check mark as they are now.
void showMenuItemState(QAction& action, const MenuItemModel& item);

/// Makes an entry stand for another item of the same kind and title.
void showMenuItem(QAction& action, const Menu& model, const MenuItem& item);

/// A hold on a model that somebody else owns, and that lasts as long as what shows it.
Menu borrowed(const MenuModel& model);

} // namespace lumeroom
