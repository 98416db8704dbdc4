#include "engine/EngineRoom.h"

#include "base/DefaultsKeys.h"
#include "base/LocalTime.h"
#include "base/UserDefaults.h"
#include "engine/Discovery.h"
#include "engine/EngineNotifier.h"
#include "engine/GroupingCommands.h"
#include "engine/Heartbeat.h"
#include "engine/LampCommands.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/PollingEmbargo.h"
#include "engine/Polls.h"
#include "engine/ProductCatalogue.h"
#include "engine/ReceiveDispatcher.h"
#include "engine/RecordIntake.h"
#include "engine/SendQueue.h"
#include "engine/Summaries.h"
#include "engine/TagCommands.h"

namespace lumeroom {

/// The engine's parts, in the order in which each needs those before it. Destroyed from the end,
/// the threads go first.
struct EngineRoom::Machinery {
    Machinery(const EngineEnvironment& with, UdpSocketDelegate& receiver)
        : environment(with)
        , registry(with.log)
        , sockets(with.makeSocket, receiver)
        , catalogue(with.readProducts)
        , embargo(with.runLoop)
        , queue(with.pacer, with.log)
        , polls(registry, sockets, queue, with.runLoop, with.log)
        , discovery(with.defaults, with.log, notifier, polls, with.arpTable)
        , intake(registry, notifier, discovery, polls, catalogue, with.log)
        , dispatcher({with.runLoop, with.log, notifier, registry, intake, polls, embargo})
        , commands(registry, sockets, with.defaults, with.log)
        , groupings({with.runLoop, with.log, notifier, registry, intake, polls, embargo})
        , tags({with.log, notifier, registry, intake, sockets, embargo})
        , heartbeat({with.runLoop, with.pacer, with.defaults, with.log, notifier, discovery, polls,
              embargo})
    {
    }

    EngineEnvironment environment;
    EngineNotifier notifier;
    LampRegistry registry;
    LampSockets sockets;
    ProductCatalogue catalogue;
    PollingEmbargo embargo;
    SendQueue queue;
    Polls polls;
    Discovery discovery;
    RecordIntake intake;
    ReceiveDispatcher dispatcher;
    LampCommands commands;
    GroupingCommands groupings;
    TagCommands tags;
    Heartbeat heartbeat;
    DefaultsObservation defaultsObservation;
};

EngineRoom::EngineRoom(const EngineEnvironment& environment)
    : m(std::make_unique<Machinery>(environment, *this))
{
    m->queue.startQueingSystem();
    m->discovery.findLIFXDevicesIfNeeded();
    m->defaultsObservation = environment.defaults.observe(
        environment.runLoop, [this] { m->discovery.findLIFXDevicesIfNeeded(); });
}

EngineRoom::~EngineRoom() = default;

void EngineRoom::setDelegate(QVLIFXEngineDelegate* delegate)
{
    m->notifier.setDelegate(delegate);
}

void EngineRoom::udpSocketDidReceiveData(
    UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from)
{
    m->dispatcher.udpSocketDidReceiveData(socket, data, from);
}

void EngineRoom::startHeartbeat()
{
    m->heartbeat.startHeartbeat();
}
void EngineRoom::invalidateSockets()
{
    m->sockets.invalidate(m->registry.lamps());
}
void EngineRoom::closeUp()
{
    m->sockets.closeUp(m->registry.lamps());
}

const Lamps& EngineRoom::lightsArray() const
{
    return m->registry.lamps();
}
const Groups& EngineRoom::groupsArray() const
{
    return m->registry.groups();
}
const Locations& EngineRoom::locationssArray() const
{
    return m->registry.locations();
}
const Tags& EngineRoom::tagsArray() const
{
    return m->registry.tags();
}

Lamps EngineRoom::lightsArrayForGroup(std::string_view id) const
{
    return m->registry.lampsForGroup(id);
}

Lamps EngineRoom::lightsArrayForLocation(std::string_view id) const
{
    return m->registry.lampsForLocation(id);
}

Lamps EngineRoom::lightsArrayForTag(std::string_view id) const
{
    return m->registry.lampsForTag(id);
}

std::shared_ptr<Lamp> EngineRoom::lampWithID(std::string_view id) const
{
    return m->registry.lampWithID(id);
}

std::shared_ptr<Lamp> EngineRoom::getRespondingLampWithID(std::string_view id) const
{
    return m->registry.lampWithID(id);
}

std::shared_ptr<Group> EngineRoom::groupWithID(std::string_view id) const
{
    return m->registry.groupWithID(id);
}

std::shared_ptr<Location> EngineRoom::locationWithID(std::string_view id) const
{
    return m->registry.locationWithID(id);
}

std::shared_ptr<const Tag> EngineRoom::tagNamed(std::string_view name) const
{
    return m->registry.tagNamed(name);
}

std::optional<std::string> EngineRoom::IDForGroupNamed(std::string_view name) const
{
    for (const auto& group : groupsArray()) {
        if (group->label == name)
            return group->id;
    }
    return {};
}

std::optional<std::string> EngineRoom::IDForLocationNamed(std::string_view name) const
{
    for (const auto& location : locationssArray()) {
        if (location->label == name)
            return location->id;
    }
    return {};
}

std::int64_t EngineRoom::integerTagForLamp(const Lamp& lamp) const
{
    return m->registry.integerTagForLamp(lamp);
}

std::int64_t EngineRoom::integerTagForGroup(const Group& group) const
{
    return lumeroom::integerTagForGroup(group);
}

std::int64_t EngineRoom::integerTagForLocation(const Location& location) const
{
    return lumeroom::integerTagForLocation(location);
}

std::int64_t EngineRoom::integerTagForTag(const Tag& tag) const
{
    return lumeroom::integerTagForTag(tag);
}

std::shared_ptr<Lamp> EngineRoom::lampForIntegerTag(std::int64_t tag) const
{
    return m->registry.lampForIntegerTag(tag);
}

std::shared_ptr<Group> EngineRoom::groupForIntegerTag(std::int64_t tag) const
{
    return m->registry.groupForIntegerTag(tag);
}

std::shared_ptr<Location> EngineRoom::locationForIntegerTag(std::int64_t tag) const
{
    return m->registry.locationForIntegerTag(tag);
}

std::shared_ptr<const Tag> EngineRoom::tagForIntegerTag(std::int64_t tag) const
{
    return m->registry.tagForIntegerTag(tag);
}

std::optional<std::string> EngineRoom::stripStyleIDforIntTag(std::int64_t tag) const
{
    return m->registry.stripStyleIDforIntTag(tag);
}

void EngineRoom::allOn(bool on)
{
    m->commands.allOn(on);
}
void EngineRoom::lampOn(std::string_view id, bool on)
{
    m->commands.lampOn(id, on);
}
void EngineRoom::groupOn(std::string_view id, bool on)
{
    m->commands.groupOn(id, on);
}
void EngineRoom::tagOn(std::string_view id, bool on)
{
    m->commands.tagOn(id, on);
}
void EngineRoom::locationOn(std::string_view id, bool on)
{
    m->commands.locationOn(id, on);
}

void EngineRoom::sendSettingsToLamp(const Settings& settings, std::string_view id)
{
    m->commands.sendSettingsToLamp(settings, id);
}

void EngineRoom::sendSettingsToGroup(const Settings& settings, std::string_view id)
{
    m->commands.sendSettingsToGroup(settings, id);
}

void EngineRoom::sendSettingsToTag(const Settings& settings, std::string_view id)
{
    m->commands.sendSettingsToTag(settings, id);
}

void EngineRoom::sendSettingsToLocation(const Settings& settings, std::string_view id)
{
    m->commands.sendSettingsToLocation(settings, id);
}

Settings EngineRoom::settingsForGroup(std::string_view id) const
{
    if (id == kAllLampsId && lightsArray().empty())
        return settingsOfUnknownLamps();
    const Lamps lamps = lightsArrayForGroup(id);
    Settings summary = summaryOfLamps(lamps);
    summary.onoff
        = groupIsOn(lamps, m->environment.defaults.integerForKey(keys::kGroupPowerStateBasedOn));
    return summary;
}

Settings EngineRoom::settingsForTag(std::string_view id) const
{
    return summaryOfLamps(lightsArrayForTag(id));
}

Settings EngineRoom::settingsForLocation(std::string_view id) const
{
    return summaryOfLamps(lightsArrayForLocation(id));
}

Settings EngineRoom::settingsForMultiZoneLamp(const Lamp& lamp) const
{
    return lumeroom::settingsForMultiZoneLamp(lamp);
}

void EngineRoom::imposeTemporaryEmbargo()
{
    m->embargo.imposeTemporaryEmbargo();
}
bool EngineRoom::embargoGroupsAndLocations() const
{
    return m->embargo.isSet();
}

void EngineRoom::makeGroupNamed(const LampReferences& lamps, const std::string& name)
{
    m->groupings.makeGroupNamed(lamps, name);
}

void EngineRoom::makeLocationNamed(const LampReferences& lamps, const std::string& name)
{
    m->groupings.makeLocationNamed(lamps, name);
}

void EngineRoom::makeTagNamed(const LampReferences& lamps, const std::string& name)
{
    m->tags.makeTagNamed(lamps, name);
}

void EngineRoom::editGroupLamps(std::string_view id, const LampReferences& lamps)
{
    m->groupings.editGroupLamps(id, lamps);
}

void EngineRoom::editLocationLamps(std::string_view id, const LampReferences& lamps)
{
    m->groupings.editLocationLamps(id, lamps);
}

void EngineRoom::editTagLamps(std::string_view id, const LampReferences& lamps)
{
    m->tags.editTagLamps(id, lamps);
}

void EngineRoom::removeGroupWithID(std::string_view id)
{
    m->groupings.removeGroupWithID(id);
}
void EngineRoom::removeLocationWithID(std::string_view id)
{
    m->groupings.removeLocationWithID(id);
}
void EngineRoom::removeTag(std::string_view id)
{
    m->tags.removeTag(id);
}

void EngineRoom::renameGroupNewName(std::string_view id, const std::string& name)
{
    m->groupings.renameGroupNewName(id, name);
}

void EngineRoom::renameLocationNewName(std::string_view id, const std::string& name)
{
    m->groupings.renameLocationNewName(id, name);
}

void EngineRoom::renameLampNewName(std::string_view id, const std::string& name)
{
    for (const auto& lamp : m->registry.lampsWithID(id))
        m->tags.sendSetLabelToLamp(name, *lamp);
}

std::set<std::string> EngineRoom::getManualIPs() const
{
    return m->discovery.getManualIPs();
}

void EngineRoom::addIPsToKnownIPs(const std::vector<std::string>& addresses)
{
    m->discovery.addIPsToKnownIPs(addresses);
}

std::string EngineRoom::saveCurrentLightStatesAsSceneWithName() const
{
    return timestampText(m->environment.runLoop.now());
}

} // namespace lumeroom
