#pragma once

#include "base/Value.h"
#include "strips/Colour.h"

#include <span>

namespace lumeroom {

class Log;

/// The stored form of a colour: a keyed archive of "hue", "saturation", "brightness" and "kelvin",
/// which files from a Mac carry too. A colour without kelvin is given 3500 K by this.
Value::Data archivedColour(Colour& colour);

/// The colour in an archive; nothing without data. One that lacks a component is solid red.
std::optional<Colour> colourUsingArchivedColour(std::span<const std::uint8_t> data, Log& log);

} // namespace lumeroom
