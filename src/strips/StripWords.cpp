#include "strips/StripWords.h"

#include "engine/LampUnits.h"
#include "strips/Controls.h"
#include "strips/LightWords.h"

#include <fmt/core.h>

namespace lumeroom {

std::string percentText(float value, float maximum)
{
    return fmt::format("{} %", percentOf(value, maximum));
}

std::string kelvinText(int kelvin)
{
    return fmt::format("{} K", kelvin);
}

std::string colourText(const SliderValues& sliders, int capabilities)
{
    const Colour colour = colourFromSliders(sliders);
    if (!isWhite(colour) && (capabilities & kCapabilityColour) != 0)
        return colourName(colour);
    const bool canVary = (capabilities & (kCapabilityColour | kCapabilityVariableWhite)) != 0;
    return canVary && colour.kelvin ? kelvinText(*colour.kelvin) : std::string();
}

std::string sliderName(const SliderModel& slider)
{
    switch (slider.tag()) {
    case controltag::kBrightnessSlider:
        return "Brightness";
    case controltag::kColourSlider:
        return "Colour";
    case controltag::kSaturationSlider:
        return "Whiteness";
    case controltag::kWarmthSlider:
        return "Warmth";
    default:
        return {};
    }
}

std::string sliderText(const SliderModel& slider)
{
    switch (slider.tag()) {
    case controltag::kColourSlider:
        return std::string(hueName(slider.value() / slider.maximum()));
    case controltag::kWarmthSlider:
        return kelvinText(kCoolestKelvin - slider.integerValue());
    default:
        return percentText(slider.value(), slider.maximum());
    }
}

std::string sliderNameAndText(const SliderModel& slider)
{
    const std::string name = sliderName(slider);
    return name.empty() ? sliderText(slider) : name + " " + sliderText(slider);
}

} // namespace lumeroom
