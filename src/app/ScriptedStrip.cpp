#include "app/ScriptedStrip.h"

namespace lumeroom {

namespace {

/// Wire units of hue in one of a script's.
constexpr double kColourPerHue = 255;

} // namespace

ScriptSettings ScriptSettings::of(const StripSettings& settings)
{
    const auto whole
        = [](const std::optional<double>& value) { return static_cast<int>(value.value_or(0)); };
    return {static_cast<int>(settings.colour.value_or(0) / kColourPerHue),
        whole(settings.saturation), whole(settings.brightness), settings.onoff.value_or(false),
        whole(settings.warmth)};
}

StripSettings ScriptSettings::stripSettings() const
{
    StripSettings settings;
    if (hue)
        settings.colour = *hue * kColourPerHue;
    if (whiteness)
        settings.saturation = *whiteness;
    if (brightness)
        settings.brightness = *brightness;
    if (warmth)
        settings.warmth = *warmth;
    settings.onoff = state;
    return settings;
}

ScriptSettings ScriptedStrip::settings() const
{
    return ScriptSettings::of(StripSettings::fromDictionary(m_controlStrip->getDictionary()));
}

std::optional<std::string_view> ScriptedStrip::reasonToRefuse(const ScriptSettings& settings) const
{
    if (settings.state && target().type == StripType::Zone)
        return "A zone goes on and off with its lamp.";
    return {};
}

std::optional<std::string_view> ScriptedStrip::reasonNotToSend(const ScriptSettings& settings) const
{
    if (const auto reason = reasonToRefuse(settings))
        return reason;
    if (m_controlStrip->embargo())
        return "The last change was a few seconds ago, and a further one would not be sent. Apply "
               "sends it.";
    if (settings.hue && target().type == StripType::Lamp)
        return "A lamp's hue is not sent by itself. Apply sends it.";
    if (settings.brightness && m_controlStrip->isReadBackLoss(*settings.brightness))
        return "One below the present brightness counts as the lamp's rounding. Apply sends it.";
    return {};
}

void ScriptedStrip::set(const ScriptSettings& settings)
{
    m_controlStrip->implementSettingsFromDictionary(settings.stripSettings());
}

void ScriptedStrip::putBrightness(int brightness)
{
    m_controlStrip->setObjectForKey(brightness, keys::kBrightness);
}

void ZTScrGroup::putBrightness(int brightness)
{
    ScriptedStrip::putBrightness(brightness);
    for (const auto& lamp : getLamps())
        lamp->putBrightness(brightness);
}

void ScriptedStrip::apply(const ScriptSettings& settings)
{
    StripSettings colour = settings.stripSettings();
    colour.onoff.reset();
    if (!colour.hasAny() && !settings.state)
        return;
    if (settings.brightness)
        putBrightness(*settings.brightness);
    if (colour.hasAny()) {
        m_controlStrip->implementSettingsFromDictionaryWithTransitionTime(colour);
        m_controlStrip->sendSettingsToStripsInGroup(colour);
    }
    // With the colours, power would go out only to a lamp that last reported another state.
    if (settings.state && *settings.state)
        m_controlStrip->switchOn();
    else if (settings.state)
        m_controlStrip->switchOff();
    m_controlStrip->imposeTemporaryEmbargo();
}

} // namespace lumeroom
