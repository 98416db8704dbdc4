#include "strips/ZTColourPicker.h"

#include "strips/ColourConversions.h"

#include <algorithm>

namespace lumeroom {

namespace {
constexpr Size kWheelSize{200, 200};
}

ZTColourPicker::ZTColourPicker()
    : m_mainSlider(kWheelSize)
{
    m_mainSlider.setAction([this] { sliderChanged(); });
    handleControl(Control::Whites);
    handleControl(Control::BrightnessSlider);
    m_kelvin = kDefaultKelvin;
}

Colour ZTColourPicker::getColor()
{
    const Colour colour = shownColour();
    m_kelvin = colour.kelvin.value_or(m_kelvin);
    return colour;
}

Colour ZTColourPicker::shownColour() const
{
    if (isPickingWhites()) {
        Colour white = Colour::grey(m_brightness);
        white.kelvin = kelvinFromKnob(m_mainSlider.getXOffsetAndYOffset().x);
        return white;
    }
    const auto [degrees, distance] = m_mainSlider.getAngleAndDistance();
    Colour colour = colourFromKnob({degrees, distance}, m_brightness);
    colour.kelvin = m_kelvin;
    return colour;
}

void ZTColourPicker::setColour(const Colour& colour)
{
    constexpr float kWhitest = 0.01F;
    m_kelvin = usableKelvin(colour).value_or(m_kelvin);
    // Like a press of the button this reads the kelvin from the white knob, over the colour's own:
    // the colours picked next have the temperature of the white that was picked last.
    if (isPickingWhites() && colour.saturation > kWhitest)
        handleControl(Control::Colours);
    const KnobPlace knob = isPickingWhites() ? knobFromKelvin(m_kelvin) : knobFromColour(colour);
    m_mainSlider.setAngleAndDistance({knob.degrees, knob.distance});
    m_brightness = colour.brightness;
    m_mainSlider.setBrightness(m_brightness);
    setNeedsDisplay();
}

void ZTColourPicker::setPickingWhites(bool whites)
{
    m_mainSlider.setWhites(whites);
    setNeedsDisplay();
}

void ZTColourPicker::handleControl(Control sender)
{
    Colour colour = getColor();
    switch (sender) {
    case Control::Whites:
        colour = Colour::grey(m_brightness);
        m_mainSlider.setWhites(true);
        setColour(colour);
        break;
    case Control::Colours:
        m_mainSlider.setWhites(false);
        setColour(colour);
        break;
    case Control::BrightnessSlider:
        m_mainSlider.setBrightness(m_brightness);
        setNeedsDisplay();
        break;
    }
    sliderChanged();
}

void ZTColourPicker::moveBrightnessTo(float brightness)
{
    m_brightness = std::clamp(brightness, 0.0F, 1.0F);
    handleControl(Control::BrightnessSlider);
}

void ZTColourPicker::sliderChanged()
{
    const Colour colour = getColor();
    if (m_delegate)
        m_delegate->userHasPickedColour(colour);
    setNeedsDisplay();
}

} // namespace lumeroom
