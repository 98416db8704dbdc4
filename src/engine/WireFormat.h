#pragma once

#include "engine/LampUnits.h"
#include "engine/UdpSocket.h"

/// The datagrams of the LIFX LAN protocol as this program sends and reads them: a header of 36
/// bytes, then the payload; all integers little-endian.
namespace lumeroom::wire {

inline constexpr std::uint16_t kLampPort = 56700;
inline constexpr std::size_t kHeaderSize = 36;
inline constexpr std::size_t kLabelSize = 32;
inline constexpr std::size_t kZonesPerReport = 8;
inline constexpr std::string_view kBroadcastAddress = "255.255.255.255";

enum class Message : std::uint16_t {
    DeviceGetService = 2,
    DeviceStateService = 3,
    DeviceGetLabel = 23,
    DeviceSetLabel = 24,
    DeviceStateLabel = 25,
    DeviceGetTags = 26,
    DeviceSetTags = 27,
    DeviceStateTags = 28,
    DeviceGetTagLabels = 29,
    DeviceSetTagLabels = 30,
    DeviceStateTagLabels = 31,
    DeviceGetVersion = 32,
    DeviceStateVersion = 33,
    DeviceAcknowledgement = 45,
    DeviceGetLocation = 48,
    DeviceSetLocation = 49,
    DeviceStateLocation = 50,
    DeviceGetGroup = 51,
    DeviceSetGroup = 52,
    DeviceStateGroup = 53,
    LightGet = 101,
    LightSetColor = 102,
    LightState = 107,
    LightSetPower = 117,
    MultizoneSetColorZones = 501,
    MultizoneGetColorZones = 502,
    MultizoneStateZone = 503,
    MultizoneStateMultizone = 506,
};

/// The message's name for the log.
std::string_view nameOf(Message message);

/// A lamp's 8-byte target; all zero where the lamp has none yet.
using OptionalTarget = std::optional<Target>;

/// One of the messages without payload. Discovery-style requests (service, tag labels, version) are
/// tagged: any lamp that hears one answers it, and the target stays zero.
Datagram request(Message message, const OptionalTarget& target);

Datagram deviceSetLabel(const OptionalTarget& target, std::string_view label);
Datagram deviceSetTags(const OptionalTarget& target, std::uint64_t tags);
Datagram deviceSetTagLabels(
    const OptionalTarget& target, std::uint64_t tag, std::string_view label);
/// `message` is DeviceSetGroup or DeviceSetLocation.
Datagram deviceSetGrouping(Message message, const OptionalTarget& target, const Guid& guid,
    std::string_view label, std::uint64_t updatedAt);
Datagram lightSetColor(
    const OptionalTarget& target, const WireColour& colour, std::uint32_t durationMilliseconds);
Datagram lightSetPower(const OptionalTarget& target, bool on, std::uint32_t durationMilliseconds);
Datagram multizoneSetColorZones(const OptionalTarget& target, std::uint8_t zone,
    const WireColour& colour, std::uint32_t durationMilliseconds);
Datagram multizoneGetColorZones(const OptionalTarget& target, std::uint8_t lastZone);

/// A received datagram taken apart. Only type and target are read of the header: size, source and
/// flags are not looked at, so a reply to any client is good.
struct Frame {
    std::uint16_t type = 0;
    Target target{};
    std::span<const std::uint8_t> payload;
};

/// Nothing for a datagram that is too short for a header.
std::optional<Frame> parseFrame(std::span<const std::uint8_t> datagram);

} // namespace lumeroom::wire
