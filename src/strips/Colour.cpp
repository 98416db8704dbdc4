#include "strips/Colour.h"

#include "engine/LampUnits.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

Rgba rgbaFrom(const Colour& colour)
{
    // One of six ramps for each component, each a third of a turn from the next.
    const auto component = [&colour](float turn) {
        const float place = std::fmod(colour.hue * 6.0F + turn, 6.0F);
        const float ramp = std::clamp(std::min(place, 4.0F - place), 0.0F, 1.0F);
        return colour.brightness * (1.0F - colour.saturation * ramp);
    };
    return {component(5), component(3), component(1), colour.alpha};
}

std::optional<int> usableKelvin(const Colour& colour)
{
    const bool usable
        = colour.kelvin && *colour.kelvin >= kWarmestKelvin && *colour.kelvin <= kCoolestKelvin;
    return usable ? colour.kelvin : std::nullopt;
}

} // namespace lumeroom
