#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace lumeroomctl {

/// A lamp or a group, with its properties as the bus has them.
struct Thing {
    QString path;
    bool isGroup = false;
    QVariantMap properties;

    QString label() const { return properties.value(QStringLiteral("Label")).toString(); }
    QString id() const { return properties.value(QStringLiteral("ID")).toString(); }
};
using Things = QList<Thing>;

/// Speaks to the running program. What fails throws a Failure.
class Client {
public:
    explicit Client(QString service);

    /// The lamps as the panel shows them, then the groups. Waits for a program that is starting.
    Things things() const;
    /// The one with this label or ID; "group:" and "lamp:" before it name the kind.
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
