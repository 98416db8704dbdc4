#pragma once

#include <functional>

class QMainWindow;

namespace lumeroom {

/// What the menus can do.
struct MenuActions {
    std::function<void()> quit;
    std::function<void()> allOn;
    std::function<void()> allOff;
    std::function<void()> showManualControl;
    std::function<void()> showConsole;
};

/// Gives the window the program's menu bar.
void addMenus(QMainWindow& window, const MenuActions& actions);

} // namespace lumeroom
