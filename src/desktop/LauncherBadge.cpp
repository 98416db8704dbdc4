#include "desktop/LauncherBadge.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QVariantMap>

namespace lumeroom {

LauncherBadge::LauncherBadge()
    : m_docks(QStringLiteral("com.canonical.Unity"), QDBusConnection::sessionBus(),
        QDBusServiceWatcher::WatchForRegistration)
{
    // A dock that starts later is told what it has missed.
    connect(&m_docks, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        if (m_number)
            send();
    });
}

LauncherBadge::~LauncherBadge()
{
    setLabel({});
}

void LauncherBadge::setLabel(std::optional<int> number)
{
    if (std::exchange(m_number, number) != number)
        send();
}

void LauncherBadge::send() const
{
    const QString uri
        = QStringLiteral("application://%1.desktop").arg(QGuiApplication::desktopFileName());
    // One object for each program; docks know it by the URI.
    auto update = QDBusMessage::createSignal(
        QStringLiteral("/com/canonical/unity/launcherentry/%1").arg(qHash(uri)),
        QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    update << uri
           << QVariantMap{{QStringLiteral("count"), static_cast<qlonglong>(m_number.value_or(0))},
                  {QStringLiteral("count-visible"), m_number.has_value()}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace lumeroom
