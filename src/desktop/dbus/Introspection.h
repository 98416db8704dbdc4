#pragma once

#include <QString>

namespace lumeroom::introspection {

/// The XML of the interfaces of each kind of object.
QString program();
QString lamp();
QString group();

/// The XML of the child nodes.
QString children(const QStringList& names);

} // namespace lumeroom::introspection
