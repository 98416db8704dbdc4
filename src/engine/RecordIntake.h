#pragma once

#include "engine/LampUnits.h"
#include "engine/WireFormat.h"

namespace lumeroom {

class EngineNotifier;
class LampRegistry;
class Liveness;
class Log;
class Polls;
class ProductCatalogue;

/// Fills the records from what lamps report, and tells the delegate what changed.
/// Each operation for a target that no lamp has answers with a log line and nothing else.
class RecordIntake {
public:
    RecordIntake(LampRegistry& registry, const EngineNotifier& notifier, Liveness& liveness,
        Polls& polls, ProductCatalogue& catalogue, Log& log);

    /// A record for an address heard from for the first time, else null.
    std::shared_ptr<Lamp> addLampToRespondingLamps(const std::string& address);
    void addLabelForLamp(const std::string& label, const Target& target);
    void addTagsToLamp(std::uint64_t field, const Target& target);
    void addVendorVersionToLamp(
        std::uint32_t vendor, std::uint32_t product, std::uint32_t version, const Target& target);
    void addHuePowerToLamp(const WireColour& colour, std::uint16_t power, const Target& target);
    void addGroupToLamp(const std::shared_ptr<Group>& group, const Target& target);
    void addLocationToLamp(const std::shared_ptr<Location>& location, const Target& target);
    void addGroupToKnownGroups(const std::shared_ptr<Group>& group);
    void addLocationToKnownLocations(const std::shared_ptr<Location>& location);
    /// The first label heard for a bit stays.
    void addTagLabelToKnownTags(const std::string& label, std::uint64_t tag);
    void addZoneCountToLamp(std::uint8_t count, const Target& target);
    void addHueZoneToLamp(const WireColour& colour, const Target& target, std::uint8_t zone);

private:
    Lamp* lampFor(const Target& target) const;

    LampRegistry& m_registry;
    const EngineNotifier& m_notifier;
    Liveness& m_liveness;
    Polls& m_polls;
    ProductCatalogue& m_catalogue;
    Log& m_log;
};

/// The lamp's record of a zone, or null. It is valid until the zones change.
Zone* getZoneFromLamp(int zone, Lamp& lamp);

/// Two truth values: both set or both clear.
constexpr bool bool1IsEqualToBool2(std::uint8_t bool1, std::uint8_t bool2)
{
    return (bool1 != 0) == (bool2 != 0);
}

} // namespace lumeroom
