#include "strips/WheelPainting.h"

#include "engine/LampUnits.h"
#include "strips/ColourConversions.h"
#include "strips/ControlPainting.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumeroom {

namespace {

float between(float from, float to, float part)
{
    return from + (to - from) * part;
}

Rgba whiteOfKelvin(int kelvin)
{
    constexpr int kSteps = int(kWarmthColours.size()) - 1;
    const float place = static_cast<float>(kCoolestKelvin - kelvin) / kMostWarmth * kSteps;
    const int step = std::clamp(static_cast<int>(place), 0, kSteps - 1);
    const float part = place - static_cast<float>(step);
    const Rgba& from = kWarmthColours[static_cast<std::size_t>(step)];
    const Rgba& to = kWarmthColours[static_cast<std::size_t>(step) + 1];
    return {between(from.red, to.red, part), between(from.green, to.green, part),
        between(from.blue, to.blue, part), 1};
}

} // namespace

Rgba wheelColour(bool whites, Point offset)
{
    if (whites)
        return whiteOfKelvin(kelvinFromKnob(std::clamp(offset.x, -1.0F, 1.0F)));
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
