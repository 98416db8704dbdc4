#pragma once

#include "Client.h"

#include <QJsonObject>

namespace lumeroomctl {

/// The properties by the names that people type, in the order in which they show.
QStringList propertyNames(bool ofGroup);
/// The property is among those that the bus says have changed.
bool isTold(const QString& name, const QVariantMap& changes);

/// A property's value in people's words; a group's lamps are their IDs. Throws a Failure for a
/// name that is none.
QString textOf(const Thing& thing, const QString& name, const Things& all);
QJsonValue jsonOf(const Thing& thing, const QString& name, const Things& all);
QJsonObject jsonOf(const Thing& thing, const Things& all);

/// What to send for pairs of property and value as people type them. Throws a Failure.
QVariantMap parseChanges(const QStringList& pairs);

} // namespace lumeroomctl
