#pragma once

#include "base/CallSoon.h"
#include "desktop/dbus/ScriptingTree.h"

#include <QDBusConnection>

namespace lumeroom {

class ProgramName;

/// Puts the scripting objects on the bus and tells it what changes, at most ten times a second.
/// Without a bus, or without the name, it does nothing; a missing bus is logged.
class ScriptingService {
public:
    ScriptingService(const ProgramName& name, Scripting& scripting, ScriptingTree::Program program,
        RunLoop& runLoop, Log& log);
    ~ScriptingService();
    ScriptingService(const ScriptingService&) = delete;
    ScriptingService& operator=(const ScriptingService&) = delete;

private:
    void tellChanges();

    Scripting& m_scripting;
    QDBusConnection m_bus;
    ScriptingTree m_tree;
    CallSoon m_tellSoon;
};

} // namespace lumeroom
