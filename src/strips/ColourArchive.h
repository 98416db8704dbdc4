#pragma once

#include "base/Value.h"
#include "strips/Colour.h"

namespace lumeroom {

class Log;

/// The stored form of a colour: a keyed archive of "hue", "saturation", "brightness" and "kelvin".
/// A colour without kelvin is given 3500 K by this.
Value::Data archivedColour(Colour& colour);

/// The colour in an archive; nothing for null. One that lacks a component is solid red, and so are
/// bytes that are no archive, even none at all.
std::optional<Colour> colourUsingArchivedColour(const Value::Data* data, Log& log);

} // namespace lumeroom
