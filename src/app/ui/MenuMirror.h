#pragma once

#include "base/CallSoon.h"
#include "base/Listeners.h"
#include "strips/ui/MenuEntry.h"

#include <QObject>

namespace lumeroom {

/// Keeps a toolkit menu, with its submenus, as a menu model is. It follows soon after each change
/// and not as it opens: the desktop's tray has to know its menu before that. A menu with nothing in
/// it cannot be opened from the one that it is in. Pictures and check marks are those of the moment
/// each time it opens.
class MenuMirror : public QObject {
    Q_OBJECT

public:
    /// The menu lasts longer than the mirror; so does the model, until the menu is last opened.
    MenuMirror(const MenuModel& model, QMenu& menu, RunLoop& runLoop,
        MenuReader reader = MenuReader::Toolkit);

private:
    struct Entry {
        QAction* action;
        MenuItem item;
        std::unique_ptr<MenuMirror> below; ///< of a submenu
        bool canShow(const MenuItemModel& other) const;
    };
    void fill();
    void add(const MenuItem& item);
    void removeLast();
    void showStates();

    const MenuModel& m_model;
    QMenu& m_menu;
    RunLoop& m_runLoop;
    MenuReader m_reader;
    CallSoon m_fillSoon;
    Subscription m_subscription;
    std::vector<Entry> m_entries;
};

} // namespace lumeroom
