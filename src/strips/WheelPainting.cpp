#include "strips/WheelPainting.h"

#include "strips/ColourConversions.h"
#include "strips/ControlPainting.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumeroom {

Rgba wheelColour(bool whites, Point offset)
{
    if (whites)
        return whiteOf(kelvinFromKnob(std::clamp(offset.x, -1.0F, 1.0F)));
    const float fromTop = std::atan2(offset.x, offset.y) / std::numbers::pi_v<float> * 180;
    const float degrees = fromTop < 0 ? fromTop + 360 : fromTop;
    const float distance = std::min(std::hypot(offset.x, offset.y), 1.0F);
    return rgbaFrom(colourFromKnob({degrees, distance}, 1));
}

float wheelShade(float brightness)
{
    constexpr float kDarkest = 0.8F;
    return kDarkest * (1 - std::clamp(brightness, 0.0F, 1.0F));
}

} // namespace lumeroom
