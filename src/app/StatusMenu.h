#pragma once

#include "strips/LampControlStrip.h"

namespace lumeroom {

class LampRegistry;
class UserDefaults;

/// The menu of the status item in the desktop's tray, with direct control of each target, and the
/// badge on the program's icon in the dock.
class StatusMenu {
public:
    struct Actions {
        std::function<void()> showManualControl;
        std::function<void()> allOn;
        std::function<void()> allOff;
    };
    StatusMenu(const LampRegistry& registry, const UserDefaults& defaults, Actions actions);

    /// The desktop's way to show this number on the program's icon; nothing clears it.
    std::function<void(std::optional<int>)> setBadgeLabel;

    /// The desktop's way to end the program.
    std::function<void()> quit;

    MenuModel& statusMenu() { return m_statusMenu; }
    /// The presets, behind the entries for all lamps.
    MenuModel& statusPeresetSubMenu() { return *m_statusPeresetSubMenu; }

    /// Fills the presets' menu. The user's own presets will stand under the entries for all lamps.
    void populatePresetPullDown();
    /// Empties the menu down to the entries that are always there.
    void begin();
    /// An entry that switches the strip's target over and shows whether it is on, and its colour.
    void addStrip(LampControlStrip& strip);
    /// The strip's entry, where it has one, takes its present name.
    void renameStrip(LampControlStrip& strip);

    void countLampsLit();
    int lightsOn() const { return m_lightsOn; }
    /// Counts them, and shows the count as the badge where the user wants it.
    void updateDockIcon();

    /// The user starts the program, or chooses its icon, while it runs. The answer: the system need
    /// do nothing more.
    bool applicationShouldHandleReopen();

private:
    static std::shared_ptr<MenuItemModel> entryFor(LampControlStrip& strip);

    const LampRegistry& m_registry;
    const UserDefaults& m_defaults;
    Actions m_actions;
    MenuModel m_statusMenu;
    std::shared_ptr<MenuModel> m_statusPeresetSubMenu;
    int m_lightsOn = 0;
};

} // namespace lumeroom
