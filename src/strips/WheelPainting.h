#pragma once

#include "base/Geometry.h"
#include "strips/Colour.h"

namespace lumeroom {

/// What the picker's wheel shows, at full brightness, where the knob gives this very colour.
/// `offset` is the knob's, up to 1 from the centre; beyond it the colours of the edge go on.
Rgba wheelColour(bool whites, Point offset);

/// How much black lies over a wheel of this brightness. A wheel for a lamp turned right down still
/// shows its colours faintly, to pick from.
float wheelShade(float brightness);

} // namespace lumeroom
