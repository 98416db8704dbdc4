#pragma once

#include "Client.h"

namespace lumeroomctl {

// What a person wants to see of a lamp or group at a glance; scripts take the numbers.

/// Its state, brightness and colour: "on", "79%", and a white's kelvin, or a colour's name and its
/// degrees round the colour circle. Without a light, why there is none.
QStringList lightInWords(const Thing& thing);
/// Why a list of this kind shows nothing of a person's own, though there are lamps; empty if it
/// does.
QString whyEmpty(const lumeroom::ObjectKind& kind, const Things& all);

} // namespace lumeroomctl
