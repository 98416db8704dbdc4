#pragma once

#include "desktop/dbus/ThingSurfaces.h"

#include <QDBusVirtualObject>
#include <QHash>

#include <variant>

namespace lumeroom {

/// The objects on the bus: the program at the root, and below it one for each lamp, zone, group,
/// location and tag that is known. It answers what is asked of them, and refuses what makes no
/// sense with an error that says why.
class ScriptingTree : public QDBusVirtualObject {
public:
    struct Program {
        QString version;
        /// With the token by which the desktop lets it take the focus; empty without one.
        std::function<void(const QString& activationToken)> showPanel;
        /// Where lamps were looked for, for a person who sees none.
        std::function<std::string()> search;
    };

    ScriptingTree(Scripting& scripting, Program program);

    /// The signals that tell what has changed since the last call, and since the start.
    std::vector<QDBusMessage> changes();

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    using ProgramSurface = Surface<Program, std::monostate>;

    ProgramSurface programSurface();
    ProgramSurface objectManagerSurface();
    const ThingSurface& surfaceOf(const KnownThing& thing) const;
    std::optional<KnownThing> thingAt(const QString& path) const;
    bool exists(const QString& path) const;
    QVariantList answer(const QDBusMessage& call) const;
    QVariantList managedObjects() const;

    Scripting& m_scripting;
    Program m_program;
    ProgramSurface m_programSurface;
    ProgramSurface m_objectManager;
    ThingSurface m_lampSurface;
    ThingSurface m_groupSurface;
    // What the bus was told last
    QVariantList m_toldOfProgram;
    QHash<QString, QVariantList> m_told; ///< of each object, by path
};

} // namespace lumeroom
