#pragma once

#include "base/Value.h"
#include "engine/UdpSocket.h"

#include <array>
#include <memory>
#include <span>

namespace lumeroom {

/// The keys by which records and settings are known to the rest of the program and its files.
namespace keys {
inline constexpr std::string_view kAddress = "address";
inline constexpr std::string_view kId = "id";
inline constexpr std::string_view kLabel = "label";
inline constexpr std::string_view kMac = "MAC";
inline constexpr std::string_view kSocket = "socket";
inline constexpr std::string_view kService = "service";
inline constexpr std::string_view kPort = "port";
inline constexpr std::string_view kColour = "colour";
inline constexpr std::string_view kSaturation = "saturation";
inline constexpr std::string_view kBrightness = "brightness";
inline constexpr std::string_view kWarmth = "warmth";
inline constexpr std::string_view kOnOff = "onoff";
inline constexpr std::string_view kDuration = "duration";
inline constexpr std::string_view kGroup = "group";
inline constexpr std::string_view kLocation = "location";
inline constexpr std::string_view kTags = "tags";
inline constexpr std::string_view kProduct = "product";
inline constexpr std::string_view kVendor = "vendor";
inline constexpr std::string_view kVersion = "version";
inline constexpr std::string_view kCapabilities = "capabilities";
inline constexpr std::string_view kZoneCount = "zonecount";
inline constexpr std::string_view kZones = "zones";
inline constexpr std::string_view kZone = "zone";
inline constexpr std::string_view kGroupGuid = "groupguid";
inline constexpr std::string_view kLocationGuid = "locationguid";
inline constexpr std::string_view kUpdatedAt = "updated_at";
inline constexpr std::string_view kIntegerId = "integerId";
inline constexpr std::string_view kTag = "tag";
} // namespace keys

/// The ID that stands for all lamps.
inline constexpr std::string_view kAllLampsId = "0";

/// Capability bits of a lamp.
inline constexpr int kCapabilityColour = 1;
inline constexpr int kCapabilityVariableWhite = 4;
inline constexpr int kCapabilitiesColourLamp = 7;
inline constexpr int kCapabilitiesWhiteLamp = 2;

/// Colour in lamp units, each member absent when not known: colour (hue) 0 to 65535; saturation 0
/// to 255 and inverted, 0 being full colour and 255 white; brightness 0 to 255; warmth 9000 minus
/// kelvin.
struct LampColour {
    std::optional<double> colour;
    std::optional<double> saturation;
    std::optional<double> brightness;
    std::optional<double> warmth;

    /// Any, or all, of the four are present.
    bool hasAny() const;
    bool hasAll() const;
    /// Copies the members that `other` has.
    void adopt(const LampColour& other);
    void writeTo(Value::Dictionary& dictionary) const;
    bool operator==(const LampColour&) const = default;
};

/// What to change, or a summary of what is. An absent member means: leave that property alone.
struct Settings : LampColour {
    std::optional<bool> onoff;
    std::optional<double> duration; ///< transition, in seconds

    static Settings fromDictionary(const Value::Dictionary& dictionary);
    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
    bool operator==(const Settings&) const = default;
};

/// One zone of a multizone lamp.
struct Zone : LampColour {
    int zone = 0; ///< 0 to 255
    /// What it was sent with the whole lamp, and since. Any report of its own is believed instead,
    /// even one that crossed the command.
    std::optional<LampColour> colourSent = {};

    /// As the zone was told, or else as it has reported.
    const LampColour& expectedColour() const { return colourSent ? *colourSent : *this; }
    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
};

using Target = std::array<std::uint8_t, 8>;
using Guid = std::array<std::uint8_t, 16>;

/// A group or a location: a guid, label and update time that lamps store.
struct Grouping {
    Guid guid{};
    std::string label;
    std::optional<std::uint64_t> updatedAt; ///< nanoseconds since 1970
    std::string id; ///< the guid in 32 hexadecimal digits
    std::int64_t integerId = 0; ///< nanoseconds since 1970 when the record was built; its menu tag

    bool operator==(const Grouping&) const = default;
};

struct Group : Grouping {
    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
};

struct Location : Grouping {
    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
};

/// A tag of the older scheme: one bit of each lamp's 64-bit field, and a name.
struct Tag {
    std::uint64_t tag = 0;
    std::string label;
    std::string id; ///< the same text as the label

    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
    bool operator==(const Tag&) const = default;
};

/// A lamp's report that it serves the protocol.
struct LampService {
    TimePoint updatedAt;
    std::uint32_t port = 0;
};

/// How a lamp answers at its address.
struct LampPolling {
    bool hasAnswered = false; ///< ever; until then it may be nobody
    int unanswered = 0; ///< requests for its state since it was last heard
    int pause = 0; ///< heartbeats that pass before it is asked again
    std::optional<TimePoint> lastHeard; ///< on the wall clock

    /// At least three requests left without an answer; one more may still wait in the queue.
    bool isSilent() const { return unanswered > 3; }
    bool isAnswering() const { return hasAnswered && !isSilent(); }
};

/// All that is known of one lamp. Members beyond the first three come with the lamp's replies.
struct Lamp : LampColour {
    std::string address; ///< IP address; the record's identity when it was made
    std::string id; ///< the target in 16 hexadecimal digits
    std::string label;
    std::optional<Target> mac;
    SocketAddress heardFrom; ///< when the record was made
    std::shared_ptr<UdpSocket> socket;
    std::weak_ptr<UdpSocket> previousSocket; ///< replies to what left by it may still come
    /// Further records of the same lamp, at other addresses that it was heard at.
    std::vector<std::shared_ptr<Lamp>> elsewhere;
    std::optional<LampService> service;
    LampPolling polling;
    bool labelIsKnown = false; ///< the lamp has told its label, if only an empty one
    std::optional<bool> onoff;
    /// What was sent last, until the lamp reports its power. It may not have heard of it.
    std::optional<bool> powerSent;
    Seconds settles{}; ///< when its latest short fade is over, on the steady clock
    std::uint64_t reports = 0; ///< of colour and power that were news, counted
    std::shared_ptr<Group> group;
    std::shared_ptr<Location> location;
    std::optional<std::vector<std::shared_ptr<const Tag>>> tags;
    std::optional<std::string> product;
    std::optional<std::string> vendor;
    std::optional<std::string> version;
    std::optional<int> capabilities;
    std::optional<int> zonecount; ///< 0 to 255
    std::optional<std::vector<Zone>> zones; ///< in order of arrival
    LampColour forZonesToCome; ///< what zones are sent that have still to report, until all have

    /// At each address that it was heard at.
    bool isSilent() const;
    /// At any of them; nothing if never.
    std::optional<TimePoint> lastHeard() const;
    /// As the lamp was told, or else as it has reported.
    std::optional<bool> expectedPower() const { return powerSent ? powerSent : onoff; }
    /// Takes on what was told of the lamp. What belongs to the record's own address stays.
    void inherit(const Lamp& other);
    /// The colour, power and label as one dictionary entry each, with every other key that is set.
    Value::Dictionary toDictionary() const;
    std::optional<Value> valueForKey(std::string_view key) const;
    /// Those of its further records at whose addresses it has answered. What only claims to be the
    /// lamp is not sent what the lamp is.
    std::vector<std::shared_ptr<Lamp>> answeringElsewhere() const;
    /// Lamps report zones by eights; the last report may hold some that the lamp does not have.
    bool has(const Zone& zone) const;
    /// By the lamp's own count or, without one, those that have reported.
    std::size_t numberOfZones() const;
    /// Whether each zone has reported: they are learnt some seconds after the lamp.
    bool allZonesAreKnown() const;
    /// The record's zones by ascending number; empty without zones.
    std::vector<Zone> zonesInOrder() const;
    /// The same without those that the lamp does not have.
    std::vector<Zone> ownZones() const;
};

using Lamps = std::vector<std::shared_ptr<Lamp>>;
using Groups = std::vector<std::shared_ptr<Group>>;
using Locations = std::vector<std::shared_ptr<Location>>;
using Tags = std::vector<std::shared_ptr<const Tag>>;

/// The lamp's record of a zone, or null. It is valid until the zones change.
Zone* getZoneFromLamp(int zone, Lamp& lamp);

/// Two lower-case hexadecimal digits per byte: the ID of a lamp's target or a guid.
std::string getIDFromMAC(std::span<const std::uint8_t> bytes);

} // namespace lumeroom
