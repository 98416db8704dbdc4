#include "desktop/dbus/ScriptingService.h"

#include "base/Log.h"
#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ProgramIdentity.h"
#include "desktop/dbus/ProgramName.h"

#include <QDBusMessage>

namespace lumeroom {

namespace {

constexpr Seconds kBetweenSignals(0.1);

} // namespace

ScriptingService::ScriptingService(const ProgramName& name, Scripting& scripting,
    ScriptingTree::Program program, RunLoop& runLoop, Log& log)
    : m_scripting(scripting)
    , m_bus(name.bus())
    , m_tree(scripting, std::move(program))
    , m_tellSoon(
          runLoop, [this] { tellChanges(); }, kBetweenSignals)
{
    if (!name.isHeld()) {
        if (!name.hasBus())
            log.line("no session bus: scripts cannot reach the program");
        return;
    }
    m_told = m_tree.objects();
    m_bus.registerVirtualObject(bus::kRootPath, &m_tree, QDBusConnection::SubPath);
    m_tree.onChange = [this] { m_tellSoon.request(); };
    m_scripting.onChange = [this] { m_tellSoon.request(); };
}

ScriptingService::~ScriptingService()
{
    m_scripting.onChange = nullptr;
    m_bus.unregisterObject(bus::kRootPath);
}

/// Compares what the objects are with what the bus was told of them last.
void ScriptingService::tellChanges()
{
    const ScriptingTree::Objects now = m_tree.objects();
    for (auto it = m_told.cbegin(); it != m_told.cend(); ++it) {
        if (!now.contains(it.key())) {
            emitSignal(bus::kRootPath, bus::kObjectManager, QStringLiteral("InterfacesRemoved"),
                {QVariant::fromValue(QDBusObjectPath(it.key())), QStringList(it->interface)});
        }
    }
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        const auto before = m_told.constFind(it.key());
        if (before == m_told.cend()) {
            emitSignal(bus::kRootPath, bus::kObjectManager, QStringLiteral("InterfacesAdded"),
                {QVariant::fromValue(QDBusObjectPath(it.key())),
                    QVariant::fromValue(InterfaceProperties{{it->interface, it->properties}})});
            continue;
        }
        QVariantMap changes;
        for (auto property = it->properties.cbegin(); property != it->properties.cend();
             ++property) {
            if (before->properties.value(property.key()) != property.value())
                changes.insert(property.key(), property.value());
        }
        if (!changes.isEmpty()) {
            emitSignal(it.key(), bus::kProperties, QStringLiteral("PropertiesChanged"),
                {it->interface, changes, QStringList()});
        }
    }
    m_told = now;
}

void ScriptingService::emitSignal(const QString& path, const QString& interface,
    const QString& name, const QVariantList& arguments)
{
    auto signal = QDBusMessage::createSignal(path, interface, name);
    signal.setArguments(arguments);
    m_bus.send(signal);
}

} // namespace lumeroom
