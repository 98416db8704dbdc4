#include "strips/ColourConversions.h"

#include "engine/LampUnits.h"

#include <cmath>

namespace lumeroom {

namespace {

constexpr float kHueRange = kMostColour;
constexpr float kByteRange = kMostLevel;

} // namespace

Colour colourFromSliders(const SliderValues& sliders)
{
    return {.hue = sliders.colour / kHueRange,
        .saturation = (kByteRange - sliders.saturation) / kByteRange,
        .brightness = sliders.brightness / kByteRange,
        .alpha = 1,
        .kelvin = kCoolestKelvin - static_cast<int>(sliders.warmth)};
}

SliderValues slidersFromColour(const Colour& colour, const SliderValues& present, int capabilities)
{
    SliderValues sliders = present;
    sliders.brightness = colour.brightness * kByteRange;
    sliders.saturation = kByteRange - colour.saturation * kByteRange;
    sliders.colour = colour.hue * kHueRange;
    const auto kelvin = usableKelvin(colour);
    if (kelvin && (capabilities & kCapabilityVariableWhite) != 0)
        sliders.warmth = static_cast<float>(kCoolestKelvin - *kelvin);
    return sliders;
}

Settings settingsFromEffectColour(const Colour& colour)
{
    constexpr float kDark = 0.001F;
    Settings settings;
    settings.brightness = colour.brightness * kByteRange;
    settings.colour = colour.hue * kHueRange;
    settings.saturation = kByteRange - colour.saturation * kByteRange;
    settings.warmth = kCoolestKelvin - colour.kelvin.value_or(kDefaultKelvin);
    settings.onoff = !(colour.brightness < kDark);
    return settings;
}

int kelvinFromKnob(float xOffset)
{
    return static_cast<int>(((xOffset + 1.0F) * -0.5F + 1.0F) * kMostWarmth + kWarmestKelvin);
}

KnobPlace knobFromKelvin(int kelvin)
{
    constexpr float kMiddle = kMostWarmth / 2.0F;
    const float place = (static_cast<float>(kCoolestKelvin - kelvin) - kMiddle) / kMiddle;
    return {.degrees = place >= 0 ? 90.0F : 270.0F, .distance = std::abs(place)};
}

Colour colourFromKnob(const KnobPlace& knob, float brightness)
{
    float angle = knob.degrees - 90.0F;
    if (angle < 0)
        angle += 360.0F;
    return {.hue = (360.0F - angle) / 360.0F,
        .saturation = knob.distance,
        .brightness = brightness,
        .alpha = 1,
        .kelvin = {}};
}

KnobPlace knobFromColour(const Colour& colour)
{
    float angle = 360.0F + 90.0F - colour.hue * 360.0F;
    if (angle >= 360.0F)
        angle -= 360.0F;
    return {.degrees = angle, .distance = colour.saturation};
}

} // namespace lumeroom
