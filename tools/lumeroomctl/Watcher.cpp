#include "Watcher.h"

#include "Failure.h"
#include "Properties.h"
#include "desktop/Table.h"
#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusServiceWatcher>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace lumeroomctl {

namespace bus = lumeroom::bus;

Watcher::Watcher(const Client& client, bool json)
    : m_client(client)
    , m_json(json)
{
}

int Watcher::run()
{
    QDBusConnection connection = m_client.bus();
    const QString& service = m_client.service();
    // First the wish to be told, then the list: nothing that happens in between is lost.
    connection.connect(service, {}, bus::kProperties, QStringLiteral("PropertiesChanged"), this,
        SLOT(propertiesChanged(QDBusMessage)));
    connection.connect(service, bus::kRootPath, bus::kObjectManager,
        QStringLiteral("InterfacesAdded"), this, SLOT(interfacesAdded(QDBusMessage)));
    connection.connect(service, bus::kRootPath, bus::kObjectManager,
        QStringLiteral("InterfacesRemoved"), this, SLOT(interfacesRemoved(QDBusMessage)));
    QDBusServiceWatcher life(service, connection, QDBusServiceWatcher::WatchForUnregistration);
    connect(&life, &QDBusServiceWatcher::serviceUnregistered, this,
        [] { QCoreApplication::exit(kNotRunning); });
    m_things = m_client.things();
    const int status = QCoreApplication::exec();
    if (status == kNotRunning)
        throw Failure{kNotRunning, QStringLiteral("Lumeroom has quit")};
    return status;
}

void Watcher::propertiesChanged(const QDBusMessage& signal)
{
    const auto thing = std::find_if(m_things.begin(), m_things.end(),
        [&signal](const Thing& known) { return known.path == signal.path(); });
    if (thing == m_things.end())
        return;
    const auto changes = qdbus_cast<QVariantMap>(signal.arguments().value(1));
    for (auto it = changes.begin(); it != changes.end(); ++it)
        thing->properties.insert(it.key(), it.value());
    for (const QString& name : propertyNames(thing->isGroup())) {
        if (isTold(name, changes))
            print(*thing, QStringLiteral("changed"), name);
    }
}

void Watcher::interfacesAdded(const QDBusMessage& signal)
{
    const QString path = qdbus_cast<QDBusObjectPath>(signal.arguments().value(0)).path();
    const auto interfaces = qdbus_cast<lumeroom::InterfaceProperties>(signal.arguments().value(1));
    const bool known = std::any_of(m_things.begin(), m_things.end(),
        [&path](const Thing& thing) { return thing.path == path; });
    const auto* kind = lumeroom::kindAt(path);
    if (known || !kind)
        return;
    m_things.append({path, kind, interfaces.value(kind->interface)});
    print(m_things.last(), QStringLiteral("appeared"));
}

void Watcher::interfacesRemoved(const QDBusMessage& signal)
{
    const QString path = qdbus_cast<QDBusObjectPath>(signal.arguments().value(0)).path();
    const auto thing = std::find_if(
        m_things.begin(), m_things.end(), [&path](const Thing& one) { return one.path == path; });
    if (thing == m_things.end())
        return;
    print(*thing, QStringLiteral("gone"));
    m_things.erase(thing);
}

void Watcher::print(const Thing& thing, const QString& event, const QString& property) const
{
    QString line;
    if (m_json) {
        QJsonObject object{{QStringLiteral("event"), event},
            {QStringLiteral("kind"), QString(thing.kind->name)}, {QStringLiteral("id"), thing.id()},
            {QStringLiteral("label"), thing.label()}};
        if (!property.isEmpty()) {
            object.insert(QStringLiteral("property"), property);
            object.insert(QStringLiteral("value"), jsonOf(thing, property, m_things));
        }
        line = lumeroom::printableJson(
            QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    } else {
        const bool isLamp = thing.kind->type == lumeroom::StripType::Lamp;
        line = (isLamp ? QString() : thing.kind->name + u':') + lumeroom::printable(thing.label())
            + QStringLiteral(": ")
            + (property.isEmpty() ? event : property + u' ' + textOf(thing, property, m_things));
    }
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

} // namespace lumeroomctl
