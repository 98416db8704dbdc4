#pragma once

#include "desktop/dbus/ObjectPaths.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace lumeroomctl {

/// A lamp, zone, group, location or tag, with its properties as the bus has them.
struct Thing {
    QString path;
    const lumeroom::ObjectKind* kind; ///< never null
    QVariantMap properties;

    bool isGroup() const { return kind->interface == lumeroom::bus::kGroup; }
    QString label() const { return properties.value(QStringLiteral("Label")).toString(); }
    QString id() const { return properties.value(QStringLiteral("ID")).toString(); }
};
using Things = QList<Thing>;

/// Speaks to the running program. What fails throws a Failure.
class Client {
public:
    explicit Client(QString service);

    /// All that is known, kind by kind: what the panel shows as it shows it, then the rest by name.
    /// Waits for a program that is starting.
    Things things() const;
    /// The one with this label or ID; a kind and ":" before it leave only that kind.
    Thing thingNamed(const QString& name) const;
    void apply(const Thing& thing, const QVariantMap& properties) const;
    void runPreset(const QString& name) const;

    const QString& service() const { return m_service; }
    QDBusConnection bus() const { return m_bus; }

private:
    QDBusMessage call(const QString& path, const QString& interface, const QString& method,
        const QVariantList& arguments = {}) const;

    QDBusConnection m_bus;
    QString m_service;
};

/// The lamps of a group, or any other list of objects, by path.
QStringList pathsIn(const QVariant& value);

} // namespace lumeroomctl
