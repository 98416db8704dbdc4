#pragma once

#include "app/Scripting.h"
#include "desktop/dbus/Surface.h"

namespace lumeroom {

using ThingSurface = Surface<KnownThing, ScriptSettings>;

/// Of lamps and zones.
ThingSurface lampSurface(const Scripting& scripting);
/// Of groups, locations, tags and all lamps.
ThingSurface groupSurface(const Scripting& scripting);

} // namespace lumeroom
