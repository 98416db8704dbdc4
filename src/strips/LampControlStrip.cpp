#include "strips/LampControlStrip.h"

#include "engine/EngineRoom.h"
#include "engine/LampUnits.h"

namespace lumeroom {

namespace {

constexpr float kMostBrightness = 255;
constexpr float kMostColour = 65535;
constexpr float kMostSaturation = 255;
constexpr float kMostWarmth = 6500;

constexpr Seconds kEmbargo(5.0);
constexpr Seconds kFirstLookAtEmbargo(5.1);
constexpr Seconds kNextLookAtEmbargo(2.0);

/// Holds a flag at true for the time of a call.
class Held {
public:
    explicit Held(bool& flag)
        : m_flag(flag)
        , m_before(flag)
    {
        m_flag = true;
    }
    ~Held() { m_flag = m_before; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

} // namespace

StripSettings StripSettings::fromDictionary(const Value::Dictionary& dictionary)
{
    StripSettings settings{Settings::fromDictionary(dictionary), {}, {}};
    if (const auto found = dictionary.find(keys::kLabel); found != dictionary.end())
        settings.label = found->second.stringValue();
    if (const auto found = dictionary.find("transition"); found != dictionary.end())
        settings.transition = found->second.floatValue();
    return settings;
}

LampControlStrip::LampControlStrip(std::string id, StripType type, RunLoop& runLoop)
    : m_runLoop(runLoop)
    , m_ID(std::move(id))
    , m_type(type)
    , m_brightnessSlider(controltag::kBrightnessSlider, kMostBrightness, runLoop)
    , m_colourSlider(controltag::kColourSlider, kMostColour)
    , m_satSlider(controltag::kSaturationSlider, kMostSaturation, runLoop)
    , m_warmthSlider(controltag::kWarmthSlider, kMostWarmth, runLoop)
{
    m_onOffButton.setTarget(this);
    m_colourSlider.setTarget(this);
    m_brightnessSlider.setFilteredTarget(this);
    m_satSlider.setFilteredTarget(this);
    m_warmthSlider.setFilteredTarget(this);
    m_selectedButton.setHidden(true);
}

bool LampControlStrip::isGroup() const
{
    return m_type == StripType::Group || m_type == StripType::Location || m_type == StripType::Tag;
}

void LampControlStrip::setCapabilities(int capabilities)
{
    m_capabilities = capabilities;
    m_satSlider.setEnabled((capabilities & kCapabilityColour) != 0);
    m_warmthSlider.setEnabled((capabilities & kCapabilityVariableWhite) != 0);
    m_colourWell.setCapabilities(capabilities);
}

void LampControlStrip::deactivate()
{
    m_engineRoom = nullptr;
    m_embargo = true;
}

void LampControlStrip::reactivateWithEngineRoom(EngineRoom* engineRoom)
{
    m_engineRoom = engineRoom;
    m_embargo = false;
}

void LampControlStrip::unfilteredAction(const ControlModel& sender)
{
    if (&sender == &m_brightnessSlider || &sender == &m_satSlider)
        showColourOfSlidersInWell();
}

void LampControlStrip::handleControl(const ControlModel& sender)
{
    if (!m_engineRoom)
        return;
    if (&sender == &m_colourWell)
        setSlidersFromWell();
    if (isSlider(sender)) {
        showColourOfSlidersInWell();
        m_onOffButton.setNeedsDisplay();
    }
    if (m_type == StripType::Lamp)
        actForLamp(sender, settingsOfSliders());
    if (sender.tag() == controltag::kStatusMenuItem) {
        if (m_onOffButton.state())
            switchOff();
        else
            switchOn();
    }
    imposeTemporaryEmbargo();
}

void LampControlStrip::actForLamp(const ControlModel& sender, const Settings& full)
{
    const auto sendOnly
        = [this](std::optional<double> LampColour::*member, const SliderModel& slider) {
              Settings settings;
              settings.*member = slider.integerValue();
              m_engineRoom->sendSettingsToLamp(settings, m_ID);
          };
    if (&sender == &m_onOffButton)
        actForLampOnOff(full);
    else if (&sender == &m_brightnessSlider)
        sendOnly(&LampColour::brightness, m_brightnessSlider);
    else if (&sender == &m_satSlider)
        sendOnly(&LampColour::saturation, m_satSlider);
    else if (&sender == &m_warmthSlider)
        sendOnly(&LampColour::warmth, m_warmthSlider);
    else if (&sender == &m_colourWell)
        m_engineRoom->sendSettingsToLamp(full, m_ID);
    // The colour slider moves the well alone; its colour goes out with the well or the button.
}

void LampControlStrip::actForLampOnOff(const Settings& full)
{
    const bool on = m_onOffButton.state();
    m_engineRoom->lampOn(m_ID, on);
    if (!on)
        return;
    // The lamp comes on with what the strip shows; a multizone lamp keeps its zones' colours.
    const auto lamp = m_engineRoom->lampWithID(m_ID);
    if (!lamp || !lamp->zones)
        m_engineRoom->sendSettingsToLamp(full, m_ID);
}

bool LampControlStrip::isSlider(const ControlModel& sender) const
{
    return &sender == &m_brightnessSlider || &sender == &m_colourSlider || &sender == &m_satSlider
        || &sender == &m_warmthSlider;
}

SliderValues LampControlStrip::sliderValues() const
{
    return {m_brightnessSlider.value(), m_colourSlider.value(), m_satSlider.value(),
        m_warmthSlider.value()};
}

Settings LampControlStrip::settingsOfSliders() const
{
    Settings settings;
    settings.brightness = m_brightnessSlider.value();
    settings.saturation = m_satSlider.value();
    settings.colour = m_colourSlider.value();
    settings.warmth = m_warmthSlider.integerValue();
    return settings;
}

void LampControlStrip::showColourOfSlidersInWell()
{
    m_colourWell.setColour(colourFromSliders(sliderValues()));
}

void LampControlStrip::setSlidersFromWell()
{
    const Colour& colour = m_colourWell.colour();
    const SliderValues values = slidersFromColour(colour, sliderValues(), m_capabilities);
    m_brightnessSlider.setValue(values.brightness);
    m_satSlider.setValue(values.saturation);
    m_colourSlider.setValue(values.colour);
    m_warmthSlider.setValue(values.warmth);
    m_saturatedHueComponent = colour.hue;
    m_satSlider.setNeedsDisplay();
    m_onOffButton.setNeedsDisplay();
}

void LampControlStrip::switchOn()
{
    m_onOffButton.setState(true);
    handleControl(m_onOffButton);
}

void LampControlStrip::switchOff()
{
    m_onOffButton.setState(false);
    handleControl(m_onOffButton);
}

void LampControlStrip::implementSettingsFromDictionary(const StripSettings& settings)
{
    // A lamp reports a brightness back one lower than it was sent; that must not move the slider.
    const bool readBackLoss = settings.brightness
        && integerPart(*settings.brightness) == m_brightnessSlider.integerValue() - 1;
    if (!readBackLoss)
        showInSlider(m_brightnessSlider, settings.brightness);
    showInSlider(m_colourSlider, settings.colour);
    showInSlider(m_satSlider, settings.saturation);
    showInSlider(m_warmthSlider, settings.warmth);
    if (settings.onoff && *settings.onoff != m_onOffButton.state()) {
        m_onOffButton.setState(*settings.onoff);
        if (!m_embargo)
            handleControl(m_onOffButton);
    }
    if (settings.label)
        m_label.setText(*settings.label);

    const Colour before = m_colourWell.colour();
    const Colour colour = colourFromSliders(sliderValues());
    m_colourWell.setColour(colour);
    if (m_saturatedHueComponent != colour.hue) {
        m_saturatedHueComponent = colour.hue;
        m_satSlider.setNeedsDisplay();
    }
    if (m_colourWell.colour() != before)
        m_onOffButton.setNeedsDisplay();
}

void LampControlStrip::showInSlider(SliderModel& slider, const std::optional<double>& value)
{
    if (!value || integerPart(*value) == slider.integerValue())
        return;
    slider.setValue(static_cast<float>(*value));
    if (!m_embargo)
        handleControl(slider);
}

void LampControlStrip::implementSettingsFromDictionaryWithoutActing(const StripSettings& settings)
{
    const Held held(m_embargo);
    implementSettingsFromDictionary(settings);
}

void LampControlStrip::implementSettingsFromDictionaryWithoutActingObservingEmbargo(
    const StripSettings& settings)
{
    if (!m_embargo)
        implementSettingsFromDictionaryWithoutActing(settings);
}

void LampControlStrip::implementSettingsFromDictionaryWithTransitionTime(
    const StripSettings& settings)
{
    constexpr double kLongTransitionSeconds = 1;
    const Held held(m_embargo);
    Settings sent = settings;
    sent.duration.reset(); // the transition is the engine's own
    if (sent.saturation)
        sent.saturation = static_cast<double>(integerPart(*sent.saturation));
    if (m_engineRoom)
        m_engineRoom->sendSettingsToLamp(sent, m_ID);
    // With a long one the lamp's reports move the controls along as it fades.
    if (settings.transition.value_or(0) < kLongTransitionSeconds)
        implementSettingsFromDictionaryWithoutActing(settings);
    m_onOffButton.setNeedsDisplay();
}

void LampControlStrip::imposeTemporaryEmbargo()
{
    m_embargoUntil = m_runLoop.now() + std::chrono::round<TimePoint::duration>(kEmbargo);
    if (m_embargo)
        return;
    m_embargo = true;
    m_embargoTimer = m_runLoop.after(kFirstLookAtEmbargo, [this] { removeEmbargo(); });
}

void LampControlStrip::removeEmbargo()
{
    if (m_runLoop.now() > m_embargoUntil)
        m_embargo = false;
    else
        m_embargoTimer = m_runLoop.after(kNextLookAtEmbargo, [this] { removeEmbargo(); });
}

Value::Dictionary LampControlStrip::getDictionary() const
{
    Value::Dictionary dictionary;
    for (const std::string_view key : {keys::kLabel, keys::kOnOff, keys::kBrightness, keys::kColour,
             keys::kSaturation, keys::kWarmth})
        dictionary.emplace(key, objectForKey(key));
    dictionary.emplace(keys::kId, m_ID);
    return dictionary;
}

Value LampControlStrip::objectForKey(std::string_view key) const
{
    if (key == keys::kLabel)
        return m_label.text();
    if (key == keys::kOnOff)
        return m_onOffButton.state();
    if (key == keys::kBrightness)
        return static_cast<double>(m_brightnessSlider.value());
    if (key == keys::kColour)
        return static_cast<double>(m_colourSlider.value());
    if (key == keys::kSaturation)
        return static_cast<double>(m_satSlider.value());
    if (key == keys::kWarmth)
        return m_warmthSlider.integerValue();
    return "";
}

void LampControlStrip::setObjectForKey(const Value& value, std::string_view key)
{
    if (key == keys::kLabel)
        m_label.setText(value.stringValue());
    else if (key == keys::kOnOff)
        m_onOffButton.setState(value.boolValue());
    else if (key == keys::kBrightness)
        m_brightnessSlider.setValue(value.floatValue());
    else if (key == keys::kColour)
        m_colourSlider.setValue(value.floatValue());
    else if (key == keys::kSaturation)
        m_satSlider.setValue(value.floatValue());
    else if (key == keys::kWarmth)
        m_warmthSlider.setValue(value.floatValue());
}

void LampControlStrip::popoverShouldClose(const std::string& fieldText)
{
    if (!fieldText.empty() && fieldText != m_label.text())
        reName(fieldText);
}

void LampControlStrip::reName(const std::string& name)
{
    m_label.setText(name);
    if (m_engineRoom && m_type == StripType::Lamp)
        m_engineRoom->renameLampNewName(m_ID, name);
}

} // namespace lumeroom
