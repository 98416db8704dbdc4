#pragma once

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

namespace lumeroom {

/// What the standard object manager speaks of: an object's interfaces with their properties, and
/// all objects by path.
using InterfaceProperties = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, InterfaceProperties>;

/// Lets these go over the bus.
inline void registerManagedObjects()
{
    qDBusRegisterMetaType<InterfaceProperties>();
    qDBusRegisterMetaType<ManagedObjects>();
}

} // namespace lumeroom
