#include "engine/WireFormat.h"

#include "engine/ByteReader.h"

#include <algorithm>

namespace lumeroom::wire {

namespace {

constexpr std::size_t kSizeOffset = 0;
constexpr std::size_t kProtocolHighByteOffset = 3;
constexpr std::size_t kSourceOffset = 4;
constexpr std::size_t kTargetOffset = 8;
constexpr std::size_t kFlagsOffset = 22;
constexpr std::size_t kTypeOffset = 32;

// Protocol number 1024 with the addressable bit; tagged adds bit 13.
constexpr std::uint8_t kAddressedToOneLamp = 0x14;
constexpr std::uint8_t kTagged = 0x34;

constexpr std::uint8_t kResponseRequired = 1;
constexpr std::string_view kSource = "VKTD";

template <typename T> void put(Datagram& frame, std::size_t offset, T value)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        frame[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

template <typename Bytes> void putBytes(Datagram& frame, std::size_t offset, const Bytes& bytes)
{
    std::copy(bytes.begin(), bytes.end(), frame.begin() + static_cast<std::ptrdiff_t>(offset));
}

// A long label is cut at byte 32 wherever that falls; one of 32 bytes has no terminator.
void putLabel(Datagram& frame, std::size_t offset, std::string_view label)
{
    putBytes(frame, offset, label.substr(0, kLabelSize));
}

void putColour(Datagram& frame, std::size_t offset, const WireColour& colour)
{
    put(frame, offset, colour.hue);
    put(frame, offset + 2, colour.saturation);
    put(frame, offset + 4, colour.brightness);
    put(frame, offset + 6, colour.kelvin);
}

struct HeaderFields {
    Message message;
    std::uint8_t flags = 0;
    bool tagged = false;
};

Datagram makeFrame(
    const HeaderFields& header, const OptionalTarget& target, std::size_t payloadSize)
{
    Datagram frame(kHeaderSize + payloadSize);
    put(frame, kSizeOffset, static_cast<std::uint16_t>(frame.size()));
    frame[kProtocolHighByteOffset] = header.tagged ? kTagged : kAddressedToOneLamp;
    putBytes(frame, kSourceOffset, kSource);
    if (target && !header.tagged)
        putBytes(frame, kTargetOffset, *target);
    frame[kFlagsOffset] = header.flags;
    put(frame, kTypeOffset, static_cast<std::uint16_t>(header.message));
    return frame;
}

bool isTagged(Message message)
{
    return message == Message::DeviceGetService || message == Message::DeviceGetTagLabels
        || message == Message::DeviceGetVersion;
}

} // namespace

std::string_view nameOf(Message message)
{
    switch (message) {
    case Message::DeviceGetService:
        return "DEVICE_GETSERVICE";
    case Message::DeviceStateService:
        return "DEVICE_STATESERVICE";
    case Message::DeviceGetLabel:
        return "DEVICE_GETLABEL";
    case Message::DeviceSetLabel:
        return "DEVICE_SETLABEL";
    case Message::DeviceStateLabel:
        return "DEVICE_STATELABEL";
    case Message::DeviceGetTags:
        return "DEVICE_GETTAGS";
    case Message::DeviceSetTags:
        return "DEVICE_SETTAGS";
    case Message::DeviceStateTags:
        return "DEVICE_STATETAGS";
    case Message::DeviceGetTagLabels:
        return "DEVICE_GETTAGLABELS";
    case Message::DeviceSetTagLabels:
        return "DEVICE_SETTAGLABELS";
    case Message::DeviceStateTagLabels:
        return "DEVICE_STATETAGLABELS";
    case Message::DeviceGetVersion:
        return "DEVICE_GETVERSION";
    case Message::DeviceStateVersion:
        return "DEVICE_STATEVERSION";
    case Message::DeviceAcknowledgement:
        return "DEVICE_ACKNOWLEDGEMENT";
    case Message::DeviceGetLocation:
        return "DEVICE_GETLOCATION";
    case Message::DeviceSetLocation:
        return "DEVICE_SETLOCATION";
    case Message::DeviceStateLocation:
        return "DEVICE_STATELOCATION";
    case Message::DeviceGetGroup:
        return "DEVICE_GETGROUP";
    case Message::DeviceSetGroup:
        return "DEVICE_SETGROUP";
    case Message::DeviceStateGroup:
        return "DEVICE_STATEGROUP";
    case Message::LightGet:
        return "LIGHT_GET";
    case Message::LightSetColor:
        return "LIGHT_SETCOLOR";
    case Message::LightState:
        return "LIGHT_STATE";
    case Message::LightSetPower:
        return "LIGHT_SETPOWER";
    case Message::MultizoneSetColorZones:
        return "MULTIZONE_SETCOLORZONES";
    case Message::MultizoneGetColorZones:
        return "MULTIZONE_GETCOLORZONES";
    case Message::MultizoneStateZone:
        return "MULTIZONE_STATEZONE";
    case Message::MultizoneStateMultizone:
        return "MULTIZONE_STATEMULTIZONE";
    }
    return "unknown";
}

Datagram request(Message message, const OptionalTarget& target)
{
    return makeFrame({message, kResponseRequired, isTagged(message)}, target, 0);
}

Datagram deviceSetLabel(const OptionalTarget& target, std::string_view label)
{
    Datagram frame = makeFrame({Message::DeviceSetLabel, kResponseRequired}, target, kLabelSize);
    putLabel(frame, 36, label);
    return frame;
}

Datagram deviceSetTags(const OptionalTarget& target, std::uint64_t tags)
{
    // Only the first 8 bytes mean anything; the lamps have always been sent 32.
    Datagram frame = makeFrame({Message::DeviceSetTags}, target, 32);
    put(frame, 36, tags);
    return frame;
}

Datagram deviceSetTagLabels(const OptionalTarget& target, std::uint64_t tag, std::string_view label)
{
    Datagram frame = makeFrame({Message::DeviceSetTagLabels}, target, 8 + kLabelSize);
    put(frame, 36, tag);
    putLabel(frame, 44, label);
    return frame;
}

Datagram deviceSetGrouping(Message message, const OptionalTarget& target, const Guid& guid,
    std::string_view label, std::uint64_t updatedAt)
{
    Datagram frame = makeFrame({message, kResponseRequired}, target, guid.size() + kLabelSize + 8);
    putBytes(frame, 36, guid);
    putLabel(frame, 52, label);
    put(frame, 84, updatedAt);
    return frame;
}

Datagram lightSetColor(
    const OptionalTarget& target, const WireColour& colour, std::uint32_t durationMilliseconds)
{
    Datagram frame = makeFrame({Message::LightSetColor}, target, 13);
    putColour(frame, 37, colour);
    put(frame, 45, durationMilliseconds);
    return frame;
}

Datagram lightSetPower(const OptionalTarget& target, bool on, std::uint32_t durationMilliseconds)
{
    Datagram frame = makeFrame({Message::LightSetPower}, target, 6);
    put(frame, 36, static_cast<std::uint16_t>(on ? 0xFFFF : 0));
    put(frame, 38, durationMilliseconds);
    return frame;
}

Datagram multizoneSetColorZones(const OptionalTarget& target, std::uint8_t zone,
    const WireColour& colour, std::uint32_t durationMilliseconds)
{
    Datagram frame = makeFrame({Message::MultizoneSetColorZones}, target, 15);
    frame[36] = zone; // the first zone
    frame[37] = zone; // the last
    putColour(frame, 38, colour);
    put(frame, 46, durationMilliseconds);
    frame[50] = 1; // apply at once
    return frame;
}

Datagram multizoneGetColorZones(const OptionalTarget& target, std::uint8_t lastZone)
{
    Datagram frame = makeFrame({Message::MultizoneGetColorZones, kResponseRequired}, target, 2);
    frame[36] = 0;
    frame[37] = lastZone;
    // The size field has never counted these two bytes, and the lamps answer all the same.
    put(frame, kSizeOffset, static_cast<std::uint16_t>(kHeaderSize));
    return frame;
}

std::optional<Frame> parseFrame(std::span<const std::uint8_t> datagram)
{
    if (datagram.size() < kHeaderSize)
        return {};
    const ByteReader reader(datagram);
    return Frame{
        reader.u16(kTypeOffset), reader.array<8>(kTargetOffset), datagram.subspan(kHeaderSize)};
}

} // namespace lumeroom::wire
