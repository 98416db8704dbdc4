#include "app/KnownThings.h"

#include "engine/LampRegistry.h"
#include "engine/Summaries.h"

#include <algorithm>
#include <unordered_map>

namespace lumeroom {

namespace {

constexpr std::size_t kMostZones = 5000;

KnownThing thingOf(const Lamp& lamp)
{
    KnownThing thing{{lamp.id, StripType::Lamp}, StripRecord::of(lamp), {}};
    if (lamp.label.empty())
        thing.record.settings.label = lamp.id;
    return thing;
}

KnownThing thingOf(const Zone& zone, const Lamp& lamp)
{
    StripRecord record = StripRecord::of(zone, lamp);
    return {{record.id, StripType::Zone}, std::move(record), {}};
}

/// The lamps of each group, location or tag, found in one walk over the lamps.
using Members = std::unordered_map<std::string_view, Lamps>;

struct Memberships {
    explicit Memberships(const Lamps& lamps)
    {
        for (const auto& lamp : lamps) {
            if (lamp->group)
                ofGroups[lamp->group->id].push_back(lamp);
            if (lamp->location)
                ofLocations[lamp->location->id].push_back(lamp);
            for (const auto& tag : lamp->tags.value_or(Tags()))
                ofTags[tag->id].push_back(lamp);
        }
    }
    Members ofGroups;
    Members ofLocations;
    Members ofTags;
};

} // namespace

KnownThing KnownThings::collection(
    const StripTarget& target, const std::string& label, Lamps lamps) const
{
    const Settings summary = target.type == StripType::Group
        ? m_summaries.settingsForLampsOfGroup(lamps)
        : settingsForLamps(lamps);
    return {target, StripRecord::of(target.id, label.empty() ? target.id : label, summary),
        std::move(lamps)};
}

/// A lamp that came back at another address has a second record, which look-ups do not find.
Lamps KnownThings::foundByID(const Lamps& lamps) const
{
    Lamps found;
    std::copy_if(lamps.begin(), lamps.end(), std::back_inserter(found), [this](const auto& lamp) {
        return !lamp->id.empty() && m_registry.lampWithID(lamp->id) == lamp;
    });
    return found;
}

std::optional<KnownThing> KnownThings::findZone(const std::string& id) const
{
    const auto lamp = m_registry.lampWithID(id.substr(0, id.rfind('-')));
    if (!lamp || !lamp->zones)
        return {};
    for (const Zone& zone : *lamp->zones) {
        if (KnownThing thing = thingOf(zone, *lamp); thing.target.id == id)
            return thing;
    }
    return {};
}

std::optional<KnownThing> KnownThings::find(const StripTarget& target) const
{
    const std::string& id = target.id;
    const auto found = [&](const auto& record, const Lamps& lamps) {
        return record ? std::optional(collection(target, record->label, foundByID(lamps)))
                      : std::nullopt;
    };
    switch (target.type) {
    case StripType::Lamp: {
        const auto lamp = m_registry.lampWithID(id);
        return lamp && lamp->id == id ? std::optional(thingOf(*lamp)) : std::nullopt;
    }
    case StripType::Zone:
        return findZone(id);
    case StripType::Group:
        if (id == kAllLampsId)
            return collection(target, "All", foundByID(m_registry.lightsArray()));
        return found(m_registry.groupWithID(id), m_registry.lightsArrayForGroup(id));
    case StripType::Location:
        return found(m_registry.locationWithID(id), m_registry.lightsArrayForLocation(id));
    case StripType::Tag:
        return found(m_registry.tagNamed(id), m_registry.lightsArrayForTag(id));
    default:
        return {};
    }
}

std::vector<KnownThing> KnownThings::all() const
{
    const Lamps lamps = foundByID(m_registry.lightsArray());
    Memberships members(lamps);
    std::vector<KnownThing> things;
    for (const auto& lamp : lamps)
        things.push_back(thingOf(*lamp));
    for (const auto& lamp : lamps) {
        for (const Zone& zone : lamp->zonesInOrder()) {
            if (things.size() < lamps.size() + kMostZones)
                things.push_back(thingOf(zone, *lamp));
        }
    }
    const auto add = [&](const auto& records, Members& lampsOf, StripType type) {
        for (const auto& record : records)
            things.push_back(collection({record->id, type}, record->label, lampsOf[record->id]));
    };
    add(m_registry.groupsArray(), members.ofGroups, StripType::Group);
    add(m_registry.locationssArray(), members.ofLocations, StripType::Location);
    add(m_registry.tagsArray(), members.ofTags, StripType::Tag);
    things.push_back(collection({std::string(kAllLampsId), StripType::Group}, "All", lamps));
    return things;
}

} // namespace lumeroom
