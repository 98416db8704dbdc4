#pragma once

#include "strips/ui/MenuEntry.h"

#include <QMenu>
#include <QTimer>

namespace lumeroom {

/// Shows a menu model, with its submenus, in the desktop's tray, which has to know the menu before
/// it opens. The pictures are drawn anew each time it opens.
class StatusMenuMirror : public QObject {
    Q_OBJECT

public:
    /// The model lasts longer than the mirror.
    StatusMenuMirror(MenuModel& model, QMenu& menu, MenuReader reader);
    ~StatusMenuMirror() override;

private:
    struct Entry {
        QAction* action;
        MenuItem item;
        std::unique_ptr<StatusMenuMirror> below; ///< of a submenu
        bool canShow(const MenuItemModel& other) const;
    };
    void fill();
    void add(const MenuItem& item);
    void removeLast();
    void drawImages();

    MenuModel& m_model;
    QMenu& m_menu;
    MenuReader m_reader;
    QTimer m_fillSoon;
    std::vector<Entry> m_entries;
};

} // namespace lumeroom
