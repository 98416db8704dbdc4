#include "engine/RecordIntake.h"

#include "base/Log.h"
#include "engine/EngineNotifier.h"
#include "engine/LampCommands.h"
#include "engine/LampRegistry.h"
#include "engine/Liveness.h"
#include "engine/Polls.h"
#include "engine/ProductCatalogue.h"
#include "engine/Summaries.h"

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {

bool sameInteger(const std::optional<double>& known, const std::optional<double>& reported)
{
    return integerPart(known.value_or(0)) == integerPart(reported.value_or(0));
}

bool sameColour(const LampColour& known, const LampColour& reported)
{
    return sameInteger(known.colour, reported.colour)
        && sameInteger(known.saturation, reported.saturation)
        && sameInteger(known.brightness, reported.brightness)
        && sameInteger(known.warmth, reported.warmth);
}

/// Replaces a lamp's group or location if it differs in guid or label; whether it did.
template <typename Record>
bool assign(std::shared_ptr<Record>& current, const std::shared_ptr<Record>& reported)
{
    if (current && current->guid == reported->guid && current->label == reported->label)
        return false;
    current = reported;
    return true;
}

// No home has as many; a sender gone wild must not fill the memory.
constexpr std::size_t kMostLamps = 5000;
constexpr std::size_t kMostGroupings = 1000;

template <typename Record>
std::shared_ptr<Record> withSameGuid(
    const std::vector<std::shared_ptr<Record>>& known, const Record& reported)
{
    const auto found = std::find_if(known.begin(), known.end(),
        [&](const auto& record) { return record->guid == reported.guid; });
    return found == known.end() ? nullptr : *found;
}

/// Appends a record whose guid is not known yet; whether it did.
template <typename Record>
bool addToKnown(
    std::vector<std::shared_ptr<Record>>& known, const std::shared_ptr<Record>& reported)
{
    if (known.size() >= kMostGroupings || withSameGuid(known, *reported))
        return false;
    known.push_back(reported);
    return true;
}

constexpr std::string_view kGroupConflict
    = "groups found on bulbs with matching guid's but not matching labels. (We may be in the "
      "middle of updating groups which would explain this ) Lumeroom should check the updated "
      "dates and update the older one. This functionality is not implemented yet. You may see "
      "both groups or one.";
constexpr std::string_view kLocationConflict
    = "Locations found on bulbs with matching guid's but not matching labels. Lumeroom should "
      "check the updated dates and update the older one. This functionality is not implemented "
      "yet. You may see both Locations or one.";

} // namespace

RecordIntake::RecordIntake(LampRegistry& registry, const EngineNotifier& notifier,
    Liveness& liveness, Polls& polls, LampCommands& commands, ProductCatalogue& catalogue, Log& log)
    : m_registry(registry)
    , m_notifier(notifier)
    , m_liveness(liveness)
    , m_polls(polls)
    , m_commands(commands)
    , m_catalogue(catalogue)
    , m_log(log)
{
}

Lamp* RecordIntake::lampFor(const Target& target) const
{
    Lamp* lamp = m_registry.lampWithTarget(target);
    if (!lamp)
        m_log.line("don't have responding lamp id {}", getIDFromMAC(target));
    return lamp;
}

std::shared_ptr<Lamp> RecordIntake::addLampToRespondingLamps(
    const std::string& address, const Target& target)
{
    if (Lamp* known = m_registry.lampAtAddress(address, target)) {
        m_liveness.announced(*known);
        return nullptr;
    }
    if (m_registry.lightsArray().size() >= kMostLamps || !m_liveness.makeRoomForOneMore())
        return nullptr;
    auto lamp = m_registry.addLamp(address, target);
    m_liveness.added(lamp);
    if (m_registry.lightsArray().size() == kMostLamps)
        m_log.line("{} lamps are known; no more are taken in", kMostLamps);
    return lamp;
}

void RecordIntake::addLabelForLamp(const std::string& label, const Target& target)
{
    Lamp* lamp = lampFor(target);
    // Its first label shows a lamp, even one that has no name.
    if (!lamp || (std::exchange(lamp->labelIsKnown, true) && lamp->label == label))
        return;
    lamp->label = label;
    m_notifier.sendNewLampsNotificationToDelegate();
}

void RecordIntake::addTagsToLamp(std::uint64_t field, const Target& target)
{
    Lamp* lamp = lampFor(target);
    if (!lamp)
        return;
    if (Tags tags = m_registry.tagArrayForTags(field); !tags.empty())
        lamp->tags = std::move(tags);
    m_notifier.sendNewLampsNotificationToDelegate();
}

void RecordIntake::addVendorVersionToLamp(
    std::uint32_t vendor, std::uint32_t product, std::uint32_t version, const Target& target)
{
    Lamp* lamp = lampFor(target);
    if (!lamp)
        return;
    lamp->product = m_catalogue.productDescriptionFromProductID(product);
    lamp->vendor = m_catalogue.vendorDescriptionFromVendorID(vendor);
    lamp->version = std::to_string(version);
    const int capabilities = m_catalogue.capabilitiesOfProductID(product);
    if (lamp->capabilities != capabilities) {
        lamp->capabilities = capabilities;
        m_notifier.sendLampCapabilitiesChangedNotificationToDelegate();
    }
    if (m_catalogue.ProductIDHasMultizone(product))
        m_polls.sendGetColorZonesToLamp(*lamp);
}

void RecordIntake::addHuePowerToLamp(
    const WireColour& colour, std::uint16_t power, const Target& target)
{
    Lamp* lamp = lampFor(target);
    if (!lamp)
        return;
    const LampColour reported = fromWire(colour);
    const bool on = (power & 0xFFU) != 0; // only the low byte counts
    const bool wasSwitched = std::exchange(lamp->powerSent, std::nullopt).has_value();
    if (sameColour(*lamp, reported) && lamp->onoff.value_or(false) == on) {
        if (wasSwitched) { // and did not hear of it, perhaps: the panel shows what it was told
            ++lamp->reports;
            m_notifier.sendLampPowerReportedNotificationToDelegate();
        }
        return;
    }
    const bool powerChanged = lamp->onoff != on; // as its first report does
    lamp->adopt(reported);
    lamp->onoff = on;
    ++lamp->reports;
    if (!lamp->zones) {
        m_notifier.sendLampsStateChangedNotificationToDelegate();
        return;
    }
    adoptMeanOfZones(*lamp); // whose colours the zone notifications tell
    if (powerChanged || wasSwitched)
        m_notifier.sendLampPowerReportedNotificationToDelegate();
}

void RecordIntake::addGroupToLamp(const std::shared_ptr<Group>& group, const Target& target)
{
    Lamp* lamp = lampFor(target);
    if (!lamp || !assign(lamp->group, group))
        return;
    const auto known = withSameGuid(m_registry.groupsArray(), *group);
    if (known && known->label != group->label)
        m_log.line("{}", kGroupConflict);
    m_notifier.sendLampsStateChangedNotificationToDelegate();
}

void RecordIntake::addLocationToLamp(
    const std::shared_ptr<Location>& location, const Target& target)
{
    Lamp* lamp = lampFor(target);
    if (!lamp || !assign(lamp->location, location))
        return;
    const auto known = withSameGuid(m_registry.locationssArray(), *location);
    if (known && known->label != location->label)
        m_log.line("{}", kLocationConflict);
    m_notifier.sendLampsStateChangedNotificationToDelegate();
}

void RecordIntake::addGroupToKnownGroups(const std::shared_ptr<Group>& group)
{
    if (addToKnown(m_registry.groupsArray(), group))
        m_notifier.sendGroupingBecameKnownNotificationToDelegate();
}

void RecordIntake::addLocationToKnownLocations(const std::shared_ptr<Location>& location)
{
    if (addToKnown(m_registry.locationssArray(), location))
        m_notifier.sendGroupingBecameKnownNotificationToDelegate();
}

void RecordIntake::addTagLabelToKnownTags(const std::string& label, std::uint64_t tag)
{
    if (!m_registry.tagArrayForTags(tag).empty())
        return;
    m_registry.tagsArray().push_back(std::make_shared<const Tag>(Tag{tag, label, label}));
    m_polls.sendGetTagsToAllLamps();
}

void RecordIntake::addZoneCountToLamp(std::uint8_t count, const Target& target)
{
    if (Lamp* lamp = lampFor(target))
        lamp->zonecount = count;
}

void RecordIntake::addHueZoneToLamp(
    const WireColour& colour, const Target& target, std::uint8_t number)
{
    Lamp* lamp = lampFor(target);
    if (!lamp)
        return;
    if (!lamp->zones)
        lamp->zones.emplace();
    const LampColour reported = fromWire(colour);
    const Zone* known = getZoneFromLamp(number, *lamp);
    // One that reports its former colour did not hear what the whole lamp was sent.
    if (known && sameColour(*known, reported) && sameColour(known->expectedColour(), reported))
        return;

    const bool changed = known != nullptr;
    if (changed)
        lamp->zones->erase(lamp->zones->begin() + (known - lamp->zones->data()));
    lamp->zones->push_back({reported, number}); // a changed zone moves to the end
    if (!changed)
        m_commands.sendToZoneThatCame(*lamp, number);
    adoptMeanOfZones(*lamp);
    ++lamp->reports;
    if (changed)
        m_notifier.sendLampsZoneStateChangedNotificationToDelegate();
    else
        m_notifier.sendZoneAddedNotificationToDelegate();
}

} // namespace lumeroom
