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
    QStringList lamps() const; ///< by path; of a group
};
using Things = QList<Thing>;

/// Speaks to the running program. What fails throws a Failure.
class Client {
public:
    explicit Client(QString service);

    /// All that is known, kind by kind: what the panel shows as it shows it, then the rest by name.
    /// Waits for a program that is starting.
    Things things() const;
    /// Where lamps were looked for and what to check, in lines.
    QString search() const;
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

/// The one with this label or ID; a kind and ":" before it leave only that kind. Throws a Failure.
Thing thingNamed(const Things& things, const QString& name);

/// The lamps of a group, or any other list of objects, by path.
QStringList pathsIn(const QVariant& value);

} // namespace lumeroomctl
