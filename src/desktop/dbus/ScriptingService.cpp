#include "desktop/dbus/ScriptingService.h"

#include "base/Log.h"
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
    m_bus.registerVirtualObject(bus::kRootPath, &m_tree, QDBusConnection::SubPath);
    m_scripting.onChange = [this] { m_tellSoon.request(); };
}

ScriptingService::~ScriptingService()
{
    m_scripting.onChange = nullptr;
    m_bus.unregisterObject(bus::kRootPath);
}

void ScriptingService::tellChanges()
{
    for (const QDBusMessage& signal : m_tree.changes())
        m_bus.send(signal);
}

} // namespace lumeroom
