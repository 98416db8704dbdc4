#include "engine/GroupingCommands.h"

#include "base/LocalTime.h"
#include "base/Log.h"
#include "engine/EngineNotifier.h"
#include "engine/LampRegistry.h"
#include "engine/PollingEmbargo.h"
#include "engine/Polls.h"
#include "engine/RecordIntake.h"

#include <algorithm>
#include <random>

namespace lumeroom {

namespace {

/// What differs between a group and a location.
struct GroupKind {
    using Record = Group;
    static constexpr std::string_view kName = "group";
    static constexpr std::string_view kTitle = "Group";
    static constexpr int kEditLogLevel = 2;
    static std::shared_ptr<Group>& of(Lamp& lamp) { return lamp.group; }
    static std::shared_ptr<Group> withID(const LampRegistry& registry, std::string_view id)
    {
        return registry.groupWithID(id);
    }
    static void send(Polls& polls, const Group& group, Lamp& lamp)
    {
        polls.sendSetGroupToLamp(group, lamp);
    }
    static void addToKnown(RecordIntake& intake, const std::shared_ptr<Group>& group)
    {
        intake.addGroupToKnownGroups(group);
    }
};

struct LocationKind {
    using Record = Location;
    static constexpr std::string_view kName = "location";
    static constexpr std::string_view kTitle = "Location";
    static constexpr int kEditLogLevel = 3;
    static std::shared_ptr<Location>& of(Lamp& lamp) { return lamp.location; }
    static std::shared_ptr<Location> withID(const LampRegistry& registry, std::string_view id)
    {
        return registry.locationWithID(id);
    }
    static void send(Polls& polls, const Location& location, Lamp& lamp)
    {
        polls.sendSetLocationToLamp(location, lamp);
    }
    static void addToKnown(RecordIntake& intake, const std::shared_ptr<Location>& location)
    {
        intake.addLocationToKnownLocations(location);
    }
};

Guid randomGuid()
{
    std::random_device random;
    Guid guid;
    for (std::size_t i = 0; i < guid.size(); i += 4) {
        const std::uint32_t word = random();
        for (std::size_t byte = 0; byte < 4; ++byte)
            guid[i + byte] = static_cast<std::uint8_t>(word >> (8 * byte));
    }
    return guid;
}

} // namespace

GroupingCommands::GroupingCommands(const Environment& environment)
    : m_environment(environment)
{
}

void GroupingCommands::makeGroupNamed(const LampReferences& lamps, const std::string& name)
{
    make<GroupKind>(lamps, name);
}

void GroupingCommands::makeLocationNamed(const LampReferences& lamps, const std::string& name)
{
    make<LocationKind>(lamps, name);
}

void GroupingCommands::editGroupLamps(std::string_view id, const LampReferences& lamps)
{
    edit<GroupKind>(id, lamps);
}

void GroupingCommands::editLocationLamps(std::string_view id, const LampReferences& lamps)
{
    edit<LocationKind>(id, lamps);
}

void GroupingCommands::removeGroupWithID(std::string_view id)
{
    const std::string removed(id); // the caller's text may belong to the record that goes
    if (m_environment.log.shows(3))
        m_environment.log.line("Engine room instructed to remove group {}", removed);
    m_environment.embargo.imposeTemporaryEmbargo();
    editGroupLamps(removed, {});
    std::erase_if(m_environment.registry.groupsArray(),
        [&](const auto& group) { return group->id == removed; });
}

// Only groups are edited here, so the lamps keep the location and report it again.
void GroupingCommands::removeLocationWithID(std::string_view id)
{
    const std::string removed(id);
    if (m_environment.log.shows(3))
        m_environment.log.line("Engine room instructed to remove location {}", removed);
    m_environment.embargo.imposeTemporaryEmbargo();
    editGroupLamps(removed, {});
    std::erase_if(m_environment.registry.locationssArray(),
        [&](const auto& location) { return location->id == removed; });
}

// A lamp with a record of its own keeps the old label until its next report, and no embargo holds
// that back, so for a moment the log may tell of labels that do not match.
void GroupingCommands::renameGroupNewName(std::string_view id, const std::string& name)
{
    const auto group = m_environment.registry.groupWithID(id);
    if (!group)
        return;
    group->label = name;
    for (const auto& lamp : m_environment.registry.lightsArrayForGroup(group->id))
        send<GroupKind>(*group, *lamp);
}

void GroupingCommands::renameLocationNewName(std::string_view id, const std::string& name)
{
    const auto location = m_environment.registry.locationWithID(id);
    if (!location)
        return;
    location->label = name;
    for (const auto& lamp : m_environment.registry.lightsArrayForLocation(location->id))
        send<LocationKind>(*location, *lamp);
}

template <typename Kind>
void GroupingCommands::make(const LampReferences& references, const std::string& name)
{
    if (m_environment.log.shows(3)) {
        m_environment.log.line("Engine room instructed to make {} {} with: {}", Kind::kName, name,
            listOfIDs(references));
    }
    m_environment.embargo.imposeTemporaryEmbargo();
    imposeTemporaryEmbargo(references);
    const auto record = makeWithName<typename Kind::Record>(name);
    for (const auto& lamp : usableLamps(references, m_environment.registry)) {
        send<Kind>(*record, *lamp);
        Kind::of(*lamp) = record;
    }
    Kind::addToKnown(m_environment.intake, record);
}

template <typename Kind>
void GroupingCommands::edit(std::string_view id, const LampReferences& references)
{
    if (m_environment.log.shows(Kind::kEditLogLevel)) {
        m_environment.log.line("Engine room instructed to edit {} {} with: {}", Kind::kName, id,
            listOfIDs(references));
    }
    m_environment.embargo.imposeTemporaryEmbargo();
    imposeTemporaryEmbargo(references);
    const auto record = Kind::withID(m_environment.registry, id);
    const Lamps kept = usableLamps(references, m_environment.registry);
    if (record) {
        record->updatedAt = static_cast<std::uint64_t>(nanosecondssinceepoch());
        for (const auto& lamp : kept) {
            send<Kind>(*record, *lamp);
            Kind::of(*lamp) = record;
        }
    }
    for (const auto& lamp : m_environment.registry.distinctLamps()) {
        const auto& present = Kind::of(*lamp);
        const bool member = present && present->id == id;
        if (member && std::find(kept.begin(), kept.end(), lamp) == kept.end())
            takeOut<Kind>(*lamp);
    }
    m_environment.notifier.runModal({fmt::format("Edit {} Successful", Kind::kTitle),
        fmt::format("{} {} updated", Kind::kTitle, record ? record->label : std::string()),
        {"OK"}});
}

/// Sends the lamp a zero group (location), which it reports back and which then counts as none.
template <typename Kind> void GroupingCommands::takeOut(Lamp& lamp)
{
    Log& log = m_environment.log;
    if (log.shows(3))
        log.line("removing {} from lamp {}", Kind::kName, lamp.label);
    typename Kind::Record none;
    none.id = getIDFromMAC(none.guid);
    // The lamps have always been sent the low 32 bits here, with their sign.
    none.updatedAt = static_cast<std::uint64_t>(
        std::int64_t(static_cast<std::int32_t>(nanosecondssinceepoch())));
    if (log.shows(3))
        log.line("sending zero group to lamp {}", lamp.label); // locations share this line
    send<Kind>(none, lamp);
    Kind::of(lamp).reset();
}

template <typename Kind>
void GroupingCommands::send(const typename Kind::Record& record, Lamp& lamp)
{
    Kind::send(m_environment.polls, record, lamp);
    for (const auto& further : lamp.answeringElsewhere())
        Kind::send(m_environment.polls, record, *further);
}

template <typename Record>
std::shared_ptr<Record> GroupingCommands::makeWithName(const std::string& name) const
{
    auto record = std::make_shared<Record>();
    record->guid = randomGuid();
    record->id = getIDFromMAC(record->guid);
    record->integerId = nanosecondssinceepoch();
    record->updatedAt = static_cast<std::uint64_t>(nanosecondssinceepoch());
    record->label = name;
    return record;
}

std::int64_t GroupingCommands::nanosecondssinceepoch() const
{
    return nanosecondsSinceEpoch(m_environment.runLoop.now());
}

} // namespace lumeroom
