#include "engine/ReceiveDispatcher.h"

#include "base/LocalTime.h"
#include "base/Log.h"
#include "base/Utf8.h"
#include "engine/AsyncUdpSocket.h"
#include "engine/EngineNotifier.h"
#include "engine/Fades.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/Liveness.h"
#include "engine/PollingEmbargo.h"
#include "engine/Polls.h"
#include "engine/RecordIntake.h"

#include <algorithm>

namespace lumeroom {

using wire::Message;

namespace {

/// The shortest payload of each message that is understood; nothing for any other type.
std::optional<std::size_t> minimumPayload(Message message)
{
    switch (message) {
    case Message::DeviceStateService:
        return 5;
    case Message::DeviceStateLabel:
        return 32;
    case Message::DeviceStateTags:
        return 8;
    case Message::DeviceStateTagLabels:
        return 40;
    case Message::DeviceStateVersion:
        return 12;
    case Message::DeviceAcknowledgement:
        return 0;
    case Message::DeviceStateLocation:
    case Message::DeviceStateGroup:
        return 56;
    case Message::LightState:
        return 32;
    case Message::MultizoneStateZone:
        return 10;
    case Message::MultizoneStateMultizone:
        return 66;
    default:
        return {};
    }
}

WireColour colourAt(const ByteReader& payload, std::size_t offset)
{
    return {payload.u16(offset), payload.u16(offset + 2), payload.u16(offset + 4),
        payload.u16(offset + 6)};
}

bool isZero(const Guid& guid)
{
    return std::all_of(guid.begin(), guid.end(), [](std::uint8_t byte) { return byte == 0; });
}

Value bytesForLog(const ByteReader& payload)
{
    const auto bytes = payload.bytes(0, payload.size());
    return Value::Data(bytes.begin(), bytes.end());
}

std::string textForLog(std::span<const std::uint8_t> data)
{
    return isValidUtf8(data) ? std::string(data.begin(), data.end()) : "(null)";
}

} // namespace

ReceiveDispatcher::ReceiveDispatcher(const Environment& environment)
    : m_environment(environment)
{
}

void ReceiveDispatcher::udpSocketDidReceiveData(
    UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from)
{
    const auto frame = wire::parseFrame(data);
    if (!frame)
        return;
    Log& log = m_environment.log;
    if (log.shows(3))
        log.line("messageType received: {}", frame->type);

    const auto message = static_cast<Message>(frame->type);
    const auto minimum = minimumPayload(message);
    if (!minimum) {
        if (!m_unknownTypes.insert(frame->type).second)
            return;
        log.line("messageType {} received and not understood", frame->type);
        log.line("message is {}", textForLog(data));
        return;
    }
    if (frame->payload.size() < *minimum) {
        log.line("payload of {} has length less than {}", wire::nameOf(message), *minimum);
        return;
    }
    if (message != Message::DeviceStateService) // which says that it is there, no more
        m_environment.liveness.received(frame->target, socket, from);
    dispatch(message, frame->target, ByteReader(frame->payload), from);
}

void ReceiveDispatcher::dispatch(
    Message message, const Target& target, const ByteReader& payload, const SocketAddress& from)
{
    switch (message) {
    case Message::DeviceStateService:
        didReceiveStateService(target, payload, from);
        break;
    case Message::DeviceStateLabel:
        didReceiveStateLabel(target, payload);
        break;
    case Message::DeviceStateTags:
        m_environment.intake.addTagsToLamp(payload.u64(0), target);
        break;
    case Message::DeviceStateTagLabels:
        didReceiveStateTagLabels(payload);
        break;
    case Message::LightState:
        didReceiveLightState(target, payload);
        break;
    case Message::DeviceStateVersion:
        m_environment.intake.addVendorVersionToLamp(
            payload.u32(0), payload.u32(4), payload.u32(8), target);
        break;
    case Message::DeviceStateGroup:
        didReceiveStateGroup(target, payload);
        break;
    case Message::DeviceStateLocation:
        didReceiveStateLocation(target, payload);
        break;
    case Message::MultizoneStateZone:
        didReceiveStateZone(target, payload);
        break;
    case Message::MultizoneStateMultizone:
        didReceiveStateMultizone(target, payload);
        break;
    default:
        break; // an acknowledgement says nothing new
    }
}

void ReceiveDispatcher::didReceiveStateService(
    const Target& target, const ByteReader& payload, const SocketAddress& from)
{
    constexpr std::uint8_t kUdpService = 1;
    const bool isUdp = payload.u8(0) == kUdpService;
    const std::uint32_t port = payload.u32(1);
    if (isUdp && port != 0)
        lampAnsweredFrom(from, target);
    if (isUdp) {
        if (Lamp* lamp = m_environment.registry.lampWithTarget(target))
            lamp->service = LampService{m_environment.runLoop.now(), port};
    }
    if (port == 0 && m_environment.log.shows(1))
        m_environment.log.line("we have a 'service temporarily available' from ");
}

void ReceiveDispatcher::lampAnsweredFrom(const SocketAddress& from, const Target& target)
{
    Log& log = m_environment.log;
    const std::uint16_t port = AsyncUdpSocket::portFromAddress(from);
    if (port != wire::kLampPort)
        log.line("**** lamp responding on a port other than 56700 - please contact Support");

    const std::string host = AsyncUdpSocket::hostFromAddress(from);
    if (const auto lamp = m_environment.intake.addLampToRespondingLamps(host, target)) {
        lamp->heardFrom = from;
        if (log.shows(3)) {
            log.line("we're boogieing with a lamp at {} {} {}", host, port,
                AsyncUdpSocket::familyFromAddress(from));
        }
        m_environment.polls.sendGetStateToLamp(*lamp);
    }
    m_environment.notifier.sendEngineIsSsearchingToDelegate(false);
}

void ReceiveDispatcher::didReceiveStateLabel(const Target& target, const ByteReader& payload)
{
    Log& log = m_environment.log;
    const auto label = stringFromData(payload.bytes(0, wire::kLabelSize));
    if (!label) {
        log.line("Unable to make label from response: {}", description(bytesForLog(payload)));
        return;
    }
    m_environment.intake.addLabelForLamp(*label, target);
    if (log.shows(3)) {
        const Lamp* lamp = m_environment.registry.lampWithTarget(target);
        log.line("lamp {} is {}", *label,
            lamp ? description(lamp->toDictionary()) : std::string("(null)"));
    }
}

void ReceiveDispatcher::didReceiveStateTagLabels(const ByteReader& payload)
{
    const std::uint64_t field = payload.u64(0);
    if (static_cast<std::int64_t>(field) <= 0) // the top bit alone is no tag either
        return;
    if (const auto label = stringFromData(payload.bytes(8, wire::kLabelSize)))
        m_environment.intake.addTagLabelToKnownTags(*label, field);
}

void ReceiveDispatcher::didReceiveLightState(const Target& target, const ByteReader& payload)
{
    constexpr std::size_t kLabelOffset = 12;
    m_environment.intake.addHuePowerToLamp(colourAt(payload, 0), payload.u16(10), target);
    m_environment.fades.lampHasReported(target);
    const auto bytes = payload.bytes(kLabelOffset, wire::kLabelSize);
    if (bytes.size() < wire::kLabelSize) // a report cut short: colour and power are good
        return;
    if (const auto label = stringFromData(bytes)) {
        m_environment.intake.addLabelForLamp(*label, target);
    } else {
        m_environment.log.line(
            "Unable to make label from state response: {}", description(bytesForLog(payload)));
    }
}

/// Null when the label cannot be read or the guid is zero, which means: in no group.
template <typename Record>
std::shared_ptr<Record> ReceiveDispatcher::groupingFrom(const ByteReader& payload) const
{
    auto record = std::make_shared<Record>();
    record->guid = payload.array<16>(0);
    auto label = stringFromData(payload.bytes(16, wire::kLabelSize));
    if (!label || isZero(record->guid))
        return nullptr;
    record->label = std::move(*label);
    record->updatedAt = payload.u64(48);
    record->id = getIDFromMAC(record->guid);
    record->integerId = nanosecondsSinceEpoch(m_environment.runLoop.now());
    return record;
}

void ReceiveDispatcher::didReceiveStateGroup(const Target& target, const ByteReader& payload)
{
    const auto group = groupingFrom<Group>(payload);
    if (!group || m_environment.embargo.isSet())
        return;
    m_environment.intake.addGroupToLamp(group, target);
    m_environment.intake.addGroupToKnownGroups(group);
}

// The embargo stops the asking for locations, but a reply already on its way is taken.
void ReceiveDispatcher::didReceiveStateLocation(const Target& target, const ByteReader& payload)
{
    const auto location = groupingFrom<Location>(payload);
    if (!location)
        return;
    m_environment.intake.addLocationToLamp(location, target);
    m_environment.intake.addLocationToKnownLocations(location);
}

void ReceiveDispatcher::didReceiveStateZone(const Target& target, const ByteReader& payload)
{
    m_environment.intake.addHueZoneToLamp(colourAt(payload, 2), target, payload.u8(1));
    m_environment.intake.addZoneCountToLamp(payload.u8(0), target);
}

// All eight records are taken, also past the lamp's last zone.
void ReceiveDispatcher::didReceiveStateMultizone(const Target& target, const ByteReader& payload)
{
    const std::uint8_t first = payload.u8(1);
    for (std::size_t n = 0; n < wire::kZonesPerReport; ++n) {
        m_environment.intake.addHueZoneToLamp(
            colourAt(payload, 2 + 8 * n), target, static_cast<std::uint8_t>(first + n));
    }
}

} // namespace lumeroom
