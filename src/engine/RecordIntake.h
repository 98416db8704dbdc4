#pragma once

#include "engine/LampUnits.h"
#include "engine/WireFormat.h"

namespace lumeroom {

class EngineNotifier;
class LampCommands;
class LampRegistry;
class Liveness;
class Log;
class Polls;
class ProductCatalogue;

/// Fills the records from what lamps report, and tells the delegate what changed. A zone that comes
/// late is sent what its lamp was told meanwhile.
/// Each operation for a target that no lamp has answers with a log line and nothing else.
class RecordIntake {
public:
    RecordIntake(LampRegistry& registry, const EngineNotifier& notifier, Liveness& liveness,
        Polls& polls, LampCommands& commands, ProductCatalogue& catalogue, Log& log);

    /// A record of a lamp that was not heard at this address before, else null.
    std::shared_ptr<Lamp> addLampToRespondingLamps(
        const std::string& address, const Target& target);
    void addLabelForLamp(const std::string& label, const Target& target);
    void addTagsToLamp(std::uint64_t field, const Target& target);
    void addVendorVersionToLamp(
        std::uint32_t vendor, std::uint32_t product, std::uint32_t version, const Target& target);
    void addHuePowerToLamp(const WireColour& colour, std::uint16_t power, const Target& target);
    /// A label that differs from the one known for the guid is told in the log, once for each
    /// change of a lamp's record.
    void addGroupToLamp(const std::shared_ptr<Group>& group, const Target& target);
    void addLocationToLamp(const std::shared_ptr<Location>& location, const Target& target);
    /// The first label heard for a guid stays. Beyond 1000 nothing new is taken.
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
    LampCommands& m_commands;
    ProductCatalogue& m_catalogue;
    Log& m_log;
};

} // namespace lumeroom
