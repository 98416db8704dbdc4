#include "engine/Summaries.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/LampRegistry.h"
#include "engine/LampUnits.h"

#include <algorithm>

namespace lumeroom {

namespace {

class RunningMean {
public:
    void add(const LampColour& colour)
    {
        const auto warmth = integerPart(colour.warmth.value_or(0));
        if (m_first) {
            m_first = false;
            m_colour = value(colour.colour);
            m_saturation = value(colour.saturation);
            m_brightness = value(colour.brightness);
            m_warmth = warmth;
            return;
        }
        m_colour = halfway(m_colour, value(colour.colour));
        m_saturation = halfway(m_saturation, value(colour.saturation));
        m_brightness = halfway(m_brightness, value(colour.brightness));
        // Cut to a whole number at each step.
        m_warmth = static_cast<std::int64_t>(
            halfway(static_cast<float>(m_warmth), static_cast<float>(warmth)));
    }

    LampColour result() const
    {
        return {m_colour, m_saturation, m_brightness, static_cast<double>(m_warmth)};
    }

private:
    static float value(const std::optional<double>& member)
    {
        return static_cast<float>(member.value_or(0));
    }
    static float halfway(float running, float next) { return (running + next) * 0.5F; }

    bool m_first = true;
    float m_colour = 0;
    float m_saturation = 0;
    float m_brightness = 0;
    std::int64_t m_warmth = 0;
};

/// What a collection shows when nothing is known of it.
Settings settingsOfUnknownLamps()
{
    return {{.colour = 0, .saturation = 200, .brightness = 200, .warmth = 3500}, true, {}};
}

bool groupIsOn(const Lamps& lamps, std::int64_t basedOn)
{
    const auto on = std::count_if(lamps.begin(), lamps.end(),
        [](const auto& lamp) { return lamp->expectedPower().value_or(false); });
    const auto all = static_cast<std::ptrdiff_t>(lamps.size());
    switch (basedOn) {
    case 0:
        return on > 0;
    case 1:
        return on * 2 > all;
    case 2:
        return on == all;
    default:
        return false;
    }
}

} // namespace

Summaries::Summaries(const LampRegistry& registry, const UserDefaults& defaults)
    : m_registry(registry)
    , m_defaults(defaults)
{
}

Settings Summaries::settingsForGroup(std::string_view id) const
{
    const Lamps lamps = m_registry.lightsArrayForGroup(id);
    if (id == kAllLampsId && lamps.empty())
        return settingsOfUnknownLamps();
    return settingsForLampsOfGroup(lamps);
}

Settings Summaries::settingsForLampsOfGroup(const Lamps& lamps) const
{
    Settings summary = settingsForLamps(lamps);
    summary.onoff = groupIsOn(lamps, m_defaults.get(keys::kGroupPowerStateBasedOn));
    return summary;
}

Settings Summaries::settingsForTag(std::string_view id) const
{
    return settingsForLamps(m_registry.lightsArrayForTag(id));
}

Settings Summaries::settingsForLocation(std::string_view id) const
{
    return settingsForLamps(m_registry.lightsArrayForLocation(id));
}

Settings settingsForLamps(const Lamps& lamps)
{
    RunningMean mean;
    for (const auto& lamp : lamps)
        mean.add(*lamp);
    return {mean.result(), !lamps.empty() && lamps.back()->expectedPower().value_or(false), {}};
}

Settings settingsForMultiZoneLamp(const Lamp& lamp)
{
    if (!lamp.zones)
        return settingsOfUnknownLamps();
    RunningMean mean;
    for (const Zone& zone : *lamp.zones) {
        if (lamp.has(zone))
            mean.add(zone.expectedColour());
    }
    return {mean.result(), {}, {}};
}

void adoptMeanOfZones(Lamp& lamp)
{
    if (lamp.onoff)
        lamp.adopt(settingsForMultiZoneLamp(lamp));
}

} // namespace lumeroom
