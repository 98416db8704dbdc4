#pragma once

#include "engine/LampReference.h"
#include "engine/Records.h"
#include "engine/UdpSocket.h"

#include <set>

namespace lumeroom {

class ArpTable;
class EngineNotifier;
class Log;
class Pacer;
class QVLIFXEngineDelegate;
class RunLoop;
class UserDefaults;

/// What the engine stands on.
struct EngineEnvironment {
    RunLoop& runLoop;
    Pacer& pacer;
    UserDefaults& defaults;
    Log& log;
    SocketFactory makeSocket;
    /// The text of the product catalogue, read on first need.
    std::function<std::string()> readProducts;
    /// Reads the ARP table in the background.
    ArpTable& arpTable;
};

/// Finds the lamps, keeps a live record of each, and sends them commands. Main thread only.
/// This is the engine's face; each concern behind it has a class of its own.
class EngineRoom : public UdpSocketDelegate {
public:
    explicit EngineRoom(const EngineEnvironment& environment);
    ~EngineRoom() override;
    EngineRoom(const EngineRoom&) = delete;
    EngineRoom& operator=(const EngineRoom&) = delete;

    void setDelegate(QVLIFXEngineDelegate* delegate);

    /// Takes in a datagram, as the sockets deliver it.
    void udpSocketDidReceiveData(
        UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from) override;

    // Rhythm
    void startHeartbeat();
    void invalidateSockets();
    void closeUp();

    // The live records
    const Lamps& lightsArray() const;
    const Groups& groupsArray() const;
    const Locations& locationssArray() const;
    const Tags& tagsArray() const;
    Lamps lightsArrayForGroup(std::string_view id) const;
    Lamps lightsArrayForLocation(std::string_view id) const;
    Lamps lightsArrayForTag(std::string_view id) const;
    std::shared_ptr<Lamp> lampWithID(std::string_view id) const;
    std::shared_ptr<Lamp> getRespondingLampWithID(std::string_view id) const;
    std::shared_ptr<Group> groupWithID(std::string_view id) const;
    std::shared_ptr<Location> locationWithID(std::string_view id) const;
    std::shared_ptr<const Tag> tagNamed(std::string_view name) const;
    std::optional<std::string> IDForGroupNamed(std::string_view name) const;
    std::optional<std::string> IDForLocationNamed(std::string_view name) const;

    // One integer for each thing, for menus and schedules; 0 stands for all lamps
    std::int64_t integerTagForLamp(const Lamp& lamp) const;
    std::int64_t integerTagForGroup(const Group& group) const;
    std::int64_t integerTagForLocation(const Location& location) const;
    std::int64_t integerTagForTag(const Tag& tag) const;
    std::shared_ptr<Lamp> lampForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<Group> groupForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<Location> locationForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<const Tag> tagForIntegerTag(std::int64_t tag) const;
    std::optional<std::string> stripStyleIDforIntTag(std::int64_t tag) const;

    // Commands: each sends its datagrams at once. An ID that names nothing does nothing.
    void allOn(bool on);
    void lampOn(std::string_view id, bool on);
    /// Takes the ID of a group, a location or a tag, or "0" for all lamps.
    void groupOn(std::string_view id, bool on);
    void tagOn(std::string_view id, bool on);
    void locationOn(std::string_view id, bool on);
    /// Takes a lamp's ID (16 digits, or 12 in its short form), or a zone's: the lamp's, "-",
    /// number.
    void sendSettingsToLamp(const Settings& settings, std::string_view id);
    void sendSettingsToGroup(const Settings& settings, std::string_view id);
    void sendSettingsToTag(const Settings& settings, std::string_view id);
    void sendSettingsToLocation(const Settings& settings, std::string_view id);

    // Collections as if each were one lamp
    Settings settingsForGroup(std::string_view id) const;
    Settings settingsForTag(std::string_view id) const;
    Settings settingsForLocation(std::string_view id) const;
    Settings settingsForMultiZoneLamp(const Lamp& lamp) const;

    /// Holds group and location polling off for 15 seconds.
    void imposeTemporaryEmbargo();
    bool embargoGroupsAndLocations() const;

    // Groups, locations and tags on the lamps
    void makeGroupNamed(const LampReferences& lamps, const std::string& name);
    void makeLocationNamed(const LampReferences& lamps, const std::string& name);
    void makeTagNamed(const LampReferences& lamps, const std::string& name);
    void editGroupLamps(std::string_view id, const LampReferences& lamps);
    void editLocationLamps(std::string_view id, const LampReferences& lamps);
    void editTagLamps(std::string_view id, const LampReferences& lamps);
    void removeGroupWithID(std::string_view id);
    void removeLocationWithID(std::string_view id);
    void removeTag(std::string_view id);
    void renameGroupNewName(std::string_view id, const std::string& name);
    void renameLocationNewName(std::string_view id, const std::string& name);
    void renameLampNewName(std::string_view id, const std::string& name);

    // Discovery
    std::set<std::string> getManualIPs() const;
    void addIPsToKnownIPs(const std::vector<std::string>& addresses);

    /// The ID of a new preset: the present date as "%Y%m%d%H%M%S". Nothing is stored here.
    std::string saveCurrentLightStatesAsSceneWithName() const;

private:
    struct Machinery;

    std::unique_ptr<Machinery> m;
};

} // namespace lumeroom
