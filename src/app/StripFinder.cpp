#include "app/StripFinder.h"

#include <algorithm>

namespace lumeroom {

namespace {

constexpr std::size_t kMostNotShown = 250;

StripSettings settingsOf(const LampControlStrip& strip)
{
    const auto number
        = [&strip](std::string_view key) { return strip.objectForKey(key).doubleValue(); };
    StripSettings settings;
    settings.label = strip.label().text();
    settings.onoff = strip.objectForKey(keys::kOnOff).boolValue();
    settings.brightness = number(keys::kBrightness);
    settings.colour = number(keys::kColour);
    settings.saturation = number(keys::kSaturation);
    settings.warmth = number(keys::kWarmth);
    return settings;
}

} // namespace

StripFinder::StripFinder(const StripSurroundings& surroundings, EngineRoom& engineRoom,
    const KnownThings& known, const StripCollection& collection)
    : m_surroundings(surroundings)
    , m_engineRoom(engineRoom)
    , m_known(known)
    , m_collection(collection)
{
}

std::shared_ptr<LampControlStrip> StripFinder::onPanel(const StripTarget& target) const
{
    auto strip = target.isGroup() ? m_collection.getGroupStripWithID(target.id)
                                  : m_collection.getStripWithID(target.id);
    return strip && strip->type() == target.type ? strip : nullptr;
}

std::shared_ptr<LampControlStrip> StripFinder::stripInUse(const StripTarget& target) const
{
    if (auto strip = onPanel(target))
        return strip;
    const auto found = m_notShown.find(target);
    return found == m_notShown.end() ? nullptr : found->second.strip;
}

Strips StripFinder::stripsInUse(const Lamps& lamps) const
{
    Strips strips;
    for (const auto& lamp : lamps) {
        if (auto strip = stripInUse({lamp->id, StripType::Lamp}))
            strips.push_back(std::move(strip));
    }
    return strips;
}

std::shared_ptr<LampControlStrip> StripFinder::stripFor(const StripTarget& target)
{
    if (auto strip = onPanel(target))
        return strip;
    const auto thing = m_known.find(target);
    if (!thing)
        return nullptr;
    if (!m_notShown.contains(target) && m_notShown.size() == kMostNotShown)
        forgetOneNotShown();
    auto& [strip, lastRequest] = m_notShown[target];
    if (!strip)
        strip = makeStrip(target);
    lastRequest = ++m_requests;
    strip->setCapabilities(thing->record.capabilities.value_or(kCapabilitiesColourLamp));
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(thing->record.settings);
    return strip;
}

std::shared_ptr<LampControlStrip> StripFinder::makeStrip(const StripTarget& target) const
{
    auto strip = std::make_shared<LampControlStrip>(target.id, target.type, m_surroundings);
    strip->reactivateWithEngineRoom(&m_engineRoom);
    return strip;
}

void StripFinder::forgetOneNotShown()
{
    m_notShown.erase(std::min_element(m_notShown.begin(), m_notShown.end(),
        [](const auto& a, const auto& b) { return a.second.lastRequest < b.second.lastRequest; }));
}

StripSettings StripFinder::shown(const KnownThing& thing) const
{
    const auto strip = stripInUse(thing.target);
    if (!strip)
        return thing.record.settings;
    if (m_notShown.contains(thing.target))
        strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(thing.record.settings);
    return settingsOf(*strip);
}

} // namespace lumeroom
