#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>

#include <functional>
#include <optional>

namespace lumeroom {

/// What the desktop's portal says of the colours that the user prefers. Nothing waits for a portal
/// that is slow or not there, and one that starts later is asked then.
class PortalColourScheme : public QObject {
    Q_OBJECT

public:
    explicit PortalColourScheme(std::function<void()> changed);

    /// Nothing while no preference is known.
    std::optional<bool> prefersDark() const { return m_prefersDark; }

private slots:
    void settingChanged(const QDBusMessage& signal);

private:
    void ask(const QString& method);
    void take(const QVariant& value);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portals;
    std::function<void()> m_changed;
    std::optional<bool> m_prefersDark;
};

} // namespace lumeroom
