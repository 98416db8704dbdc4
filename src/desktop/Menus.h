#pragma once

#include <functional>

class QMainWindow;

namespace lumeroom {

class MenuModel;
class RunLoop;
class Undo;

/// What the menus can do. An entry whose member is null is left out, and so is a menu without
/// entries. Models have to last as long as the window.
struct MenuActions {
    // File
    std::function<void()> showSettings;
    std::function<void()> quit;

    // Edit
    Undo* undo = nullptr;
    std::function<void()> find;

    // View
    std::function<void(int)> switchTheme; ///< takes a number of `theme`
    std::function<int()> currentTheme; ///< the layout that is ticked
    std::function<bool()> canSwitchTheme; ///< null for always
    std::function<void(int)> setAppearance; ///< takes a value of the setting
    std::function<int()> appearance; ///< the one that is ticked
    std::function<void()> showConsole;
    std::function<void()> showExplorer;

    // Lamps
    std::function<void()> allOn;
    std::function<void()> allOff;

    // Groups: for each kind, one entry and two submenus
    struct Collection {
        std::function<void()> make;
        const MenuModel* edit = nullptr;
        const MenuModel* remove = nullptr;
    };
    Collection groups;
    Collection locations;
    Collection tags;

    // Window
    std::function<void()> showManualControl;

    // Help
    std::function<void()> visitHelp;
    std::function<void()> visitLumeroomHome;
};

/// Gives the window the program's menu bar.
void addMenus(QMainWindow& window, const MenuActions& actions, RunLoop& runLoop);

/// Hides the menu bar. The shortcuts go on working, and the menus come up where the window is
/// clicked for a context menu.
void putMenuBarAway(QMainWindow& window);

} // namespace lumeroom
