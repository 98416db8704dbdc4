#include "app/KnownThings.h"

#include "engine/LampRegistry.h"
#include "engine/Summaries.h"
#include "strips/GroupingAccess.h"

#include <map>
#include <unordered_map>

namespace lumeroom {

namespace {

constexpr std::size_t kMostZones = 5000;
const StripTarget kAllLamps{std::string(kAllLampsId), StripType::Group};

KnownThing thingOf(const Lamp& lamp)
{
    KnownThing thing{
        {lamp.id, StripType::Lamp}, StripRecord::of(lamp), StripCondition::of(lamp), {}};
    if (lamp.label.empty())
        thing.record.settings.label = lamp.id;
    return thing;
}

KnownThing thingOf(const Zone& zone, const Lamp& lamp)
{
    StripRecord record = StripRecord::of(zone, lamp);
    return {{record.id, StripType::Zone}, std::move(record), StripCondition::of(lamp), {}};
}

/// The lamps of each group, location and tag, by type and ID, found in one walk over the lamps.
using Members = std::map<StripType, std::unordered_map<std::string_view, Lamps>>;

Members membersOf(const Lamps& lamps)
{
    Members members;
    for (const auto& lamp : lamps) {
        if (lamp->group)
            members[StripType::Group][lamp->group->id].push_back(lamp);
        if (lamp->location)
            members[StripType::Location][lamp->location->id].push_back(lamp);
        for (const auto& tag : lamp->tags.value_or(Tags()))
            members[StripType::Tag][tag->id].push_back(lamp);
    }
    return members;
}

} // namespace

KnownThing KnownThings::collection(
    const StripTarget& target, const std::string& label, Lamps lamps) const
{
    const Settings summary = target.type == StripType::Group
        ? m_summaries.settingsForLampsOfGroup(lamps)
        : settingsForLamps(lamps);
    StripRecord record = StripRecord::of(target.id, label.empty() ? target.id : label, summary);
    return {target, std::move(record), StripCondition::of(lamps), std::move(lamps)};
}

std::optional<KnownThing> KnownThings::findZone(const StripTarget& target) const
{
    const auto lamp = m_registry.lampWithID(target.lampID());
    if (!lamp)
        return {};
    for (const Zone& zone : lamp->ownZones()) {
        if (zoneID(*lamp, zone) == target.id)
            return thingOf(zone, *lamp);
    }
    return {};
}

std::optional<KnownThing> KnownThings::find(const StripTarget& target) const
{
    const std::string& id = target.id;
    if (target.type == StripType::Lamp) {
        const auto lamp = m_registry.lampWithID(id);
        return lamp && lamp->id == id ? std::optional(thingOf(*lamp)) : std::nullopt;
    }
    if (target.type == StripType::Zone)
        return findZone(target);
    if (target == kAllLamps)
        return collection(target, "All", m_registry.distinctLamps());
    const auto* access = groupingAccess(target.type);
    const auto label = access ? access->label(m_registry, id) : std::nullopt;
    if (!label)
        return {};
    return collection(target, *label, target.lamps(m_registry));
}

std::vector<KnownThing> KnownThings::all() const
{
    const Lamps& lamps = m_registry.distinctLamps();
    Members members = membersOf(lamps);
    std::vector<KnownThing> things;
    for (const auto& lamp : lamps)
        things.push_back(thingOf(*lamp));
    for (const auto& lamp : lamps) {
        for (const Zone& zone : lamp->ownZones()) {
            if (things.size() < lamps.size() + kMostZones)
                things.push_back(thingOf(zone, *lamp));
        }
    }
    for (const GroupingAccess& access : groupingAccesses()) {
        access.forEach(m_registry, [&](const std::string& id, const std::string& label) {
            things.push_back(collection({id, access.type}, label, members[access.type][id]));
        });
    }
    things.push_back(collection(kAllLamps, "All", lamps));
    return things;
}

} // namespace lumeroom
