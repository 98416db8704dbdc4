#pragma once

#include "app/Scripting.h"

#include <QDBusObjectPath>
#include <QVariantMap>

namespace lumeroom {

/// The object of a lamp or a group: its kind's path, and the ID with each byte that a path cannot
/// hold as "_" and two hexadecimal digits.
QString lampPath(const std::string& id);
QString groupPath(const std::string& id);
QList<QDBusObjectPath> lampPaths(const ScriptLamps& lamps);
QList<QDBusObjectPath> groupPaths(const ScriptGroups& groups);

/// The properties as the bus has them.
QVariantMap propertiesOf(const ScriptedStrip& strip);
QVariantMap propertiesOf(const ZTScrGroup& group);

bool isWritable(const QString& property);
/// Puts the value of a writable property into the settings. What is wrong with it, in a sentence,
/// or nothing.
QString readInto(ScriptSettings& settings, const QString& property, const QVariant& value);

} // namespace lumeroom
