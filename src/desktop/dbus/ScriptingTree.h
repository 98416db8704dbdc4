#pragma once

#include "app/Scripting.h"

#include <QDBusVirtualObject>
#include <QVariantMap>

namespace lumeroom {

/// The objects on the bus: the program at the root, and below it one for each lamp and group that
/// the panel shows. It answers what is asked of them, and refuses what makes no sense with an error
/// that says why.
class ScriptingTree : public QDBusVirtualObject {
public:
    struct Program {
        QString version;
        /// With the token by which the desktop lets it take the focus; empty without one.
        std::function<void(const QString& activationToken)> showPanel;
    };
    struct Object {
        QString interface;
        QVariantMap properties;
        std::shared_ptr<ScriptedStrip> strip; ///< null for the program
    };
    /// By path.
    using Objects = QMap<QString, Object>;

    ScriptingTree(Scripting& scripting, Program program);

    /// All of them as they are now, the program too.
    Objects objects() const;
    /// Called when a script may have changed something.
    std::function<void()> onChange;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    bool exists(const QString& path) const;
    QDBusMessage answer(const QDBusMessage& call);
    QDBusMessage answerProperties(const QDBusMessage& call, const Object& object);
    QDBusMessage set(const QDBusMessage& call, const Object& object);
    QDBusMessage apply(const QDBusMessage& call, const Object& object);
    QDBusMessage answerProgram(const QDBusMessage& call);
    QDBusMessage getManagedObjects(const QDBusMessage& call) const;
    void changed() const;

    Scripting& m_scripting;
    Program m_program;
};

} // namespace lumeroom
