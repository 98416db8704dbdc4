#include "strips/StripControls.h"

#include "engine/LampUnits.h"

#include <algorithm>

namespace lumeroom {

StripControls::StripControls(const StripSurroundings& surroundings, ControlTarget& target)
    : brightnessSlider(controltag::kBrightnessSlider, kMostLevel, surroundings.runLoop)
    , colourSlider(controltag::kColourSlider, kMostColour)
    , satSlider(controltag::kSaturationSlider, kMostLevel, surroundings.runLoop)
    , warmthSlider(controltag::kWarmthSlider, kMostWarmth, surroundings.runLoop)
    , colourWell(surroundings.runLoop, surroundings.defaults, surroundings.log)
{
    onOffButton.setTarget(&target);
    effectButton.setTarget(&target);
    colourSlider.setTarget(&target);
    brightnessSlider.setFilteredTarget(&target);
    satSlider.setFilteredTarget(&target);
    warmthSlider.setFilteredTarget(&target);
    colourWell.setFilteredTarget(&target);
    selectedButton.setHidden(true);
    kindBadge.setHidden(true);
    navigationButton.setHidden(true);
    sendButton.setHidden(true);
}

std::array<SliderModel*, 4> StripControls::sliders()
{
    return {&brightnessSlider, &colourSlider, &satSlider, &warmthSlider};
}

std::array<const SliderModel*, 4> StripControls::sliders() const
{
    return {&brightnessSlider, &colourSlider, &satSlider, &warmthSlider};
}

bool StripControls::isSlider(const ControlModel& control) const
{
    const auto all = sliders();
    return std::find(all.begin(), all.end(), &control) != all.end();
}

bool StripControls::isColourControl(const ControlModel& control) const
{
    return isSlider(control) || &control == &colourWell;
}

bool StripControls::hasPendingAction() const
{
    return brightnessSlider.hasPendingAction() || satSlider.hasPendingAction()
        || warmthSlider.hasPendingAction() || colourWell.hasPendingAction();
}

void StripControls::cancelPendingActions()
{
    for (ZTSlider* slider : {&brightnessSlider, &satSlider, &warmthSlider})
        slider->cancelPendingAction();
    colourWell.cancelPendingAction();
}

void StripControls::setCapabilities(int capabilities)
{
    colourWell.setCapabilities(capabilities);
    enableControls();
}

void StripControls::setUsable(bool usable)
{
    m_usable = usable;
    enableControls();
}

void StripControls::setHasPower(bool hasPower)
{
    m_hasPower = hasPower;
    enableControls();
}

void StripControls::enableControls()
{
    const auto can = [this](int capability) {
        return m_usable && (colourWell.capabilities() & capability) != 0;
    };
    onOffButton.setEnabled(m_usable && m_hasPower);
    brightnessSlider.setEnabled(m_usable);
    colourSlider.setEnabled(can(kCapabilityColour));
    satSlider.setEnabled(can(kCapabilityColour));
    warmthSlider.setEnabled(can(kCapabilityVariableWhite));
    colourWell.setEnabled(m_usable);
    effectButton.setEnabled(m_usable);
}

SliderValues StripControls::sliderValues() const
{
    return {
        brightnessSlider.value(), colourSlider.value(), satSlider.value(), warmthSlider.value()};
}

Settings StripControls::settings() const
{
    Settings settings;
    settings.brightness = brightnessSlider.value();
    settings.saturation = satSlider.value();
    settings.colour = colourSlider.value();
    settings.warmth = warmthSlider.integerValue();
    return settings;
}

Settings StripControls::settingsOf(const ControlModel& control) const
{
    Settings own;
    if (&control == &brightnessSlider)
        own.brightness = brightnessSlider.integerValue();
    else if (&control == &colourSlider)
        own.colour = colourSlider.integerValue();
    else if (&control == &satSlider)
        own.saturation = satSlider.integerValue();
    else if (&control == &warmthSlider)
        own.warmth = warmthSlider.integerValue();
    else
        return settings();
    return own;
}

void StripControls::showColourOfSlidersInWell()
{
    colourWell.setColour(colourFromSliders(sliderValues()));
}

void StripControls::showColourOfSliders()
{
    const Colour before = colourWell.colour();
    showColourOfSlidersInWell();
    const float hue = colourFromSliders(sliderValues()).hue;
    if (saturatedHueComponent != hue) {
        saturatedHueComponent = hue;
        satSlider.setNeedsDisplay();
    }
    if (colourWell.colour() != before)
        onOffButton.setNeedsDisplay();
}

void StripControls::setSlidersFromWell()
{
    const Colour& colour = colourWell.colour();
    const SliderValues values
        = slidersFromColour(colour, sliderValues(), colourWell.capabilities());
    brightnessSlider.setValue(values.brightness);
    satSlider.setValue(values.saturation);
    colourSlider.setValue(values.colour);
    warmthSlider.setValue(values.warmth);
    saturatedHueComponent = colour.hue;
    satSlider.setNeedsDisplay();
    onOffButton.setNeedsDisplay();
}

Value StripControls::objectForKey(std::string_view key) const
{
    if (key == keys::kLabel)
        return label.text();
    if (key == keys::kOnOff)
        return onOffButton.state();
    if (key == keys::kBrightness)
        return static_cast<double>(brightnessSlider.value());
    if (key == keys::kColour)
        return static_cast<double>(colourSlider.value());
    if (key == keys::kSaturation)
        return static_cast<double>(satSlider.value());
    if (key == keys::kWarmth)
        return warmthSlider.integerValue();
    return "";
}

void StripControls::setObjectForKey(const Value& value, std::string_view key)
{
    if (key == keys::kLabel)
        label.setText(value.stringValue());
    else if (key == keys::kOnOff)
        onOffButton.setState(value.boolValue());
    else if (key == keys::kBrightness)
        brightnessSlider.setValue(value.floatValue());
    else if (key == keys::kColour)
        colourSlider.setValue(value.floatValue());
    else if (key == keys::kSaturation)
        satSlider.setValue(value.floatValue());
    else if (key == keys::kWarmth)
        warmthSlider.setValue(value.floatValue());
}

} // namespace lumeroom
