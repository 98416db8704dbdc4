#include "desktop/TrayIcon.h"

#include "app/StatusMenu.h"
#include "desktop/TrayImage.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace lumeroom {

namespace {

/// The tray of today's desktops, to which the menu goes over the session bus. The bus knows it: the
/// tray itself might be long in answering.
bool trayIsOnTheBus()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected()
        && bus.interface()->isServiceRegistered(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

} // namespace

TrayIcon::TrayIcon(StatusMenu& statusMenu, RunLoop& runLoop)
    : m_onTheBus(trayIsOnTheBus() && QSystemTrayIcon::isSystemTrayAvailable())
    , m_mirror(statusMenu.statusMenu(), m_menu, runLoop,
          m_onTheBus ? MenuReader::SessionBus : MenuReader::Toolkit)
    , m_statusItem(trayImage())
{
    m_statusItem.setToolTip(QCoreApplication::applicationName());
    m_statusItem.setContextMenu(&m_menu);
    connect(&m_statusItem, &QSystemTrayIcon::activated, this,
        [&statusMenu](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                statusMenu.applicationShouldHandleReopen();
        });
    m_statusItem.show();
}

bool TrayIcon::isThere() const
{
    return m_statusItem.isVisible()
        && (m_onTheBus ? trayIsOnTheBus() : QSystemTrayIcon::isSystemTrayAvailable());
}

} // namespace lumeroom
