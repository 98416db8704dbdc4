#pragma once

#include "app/ui/MenuMirror.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace lumeroom {

class StatusMenu;

/// The status item in the desktop's tray, where there is one. Choosing it brings the panel to the
/// front; its menu is the status menu.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    TrayIcon(StatusMenu& statusMenu, RunLoop& runLoop);

    /// Whether there is a tray that shows it now.
    bool isThere() const;

private:
    bool m_onTheBus;
    QMenu m_menu;
    MenuMirror m_mirror;
    QSystemTrayIcon m_statusItem;
};

} // namespace lumeroom
