#include "VirtualLamp.h"

#include <algorithm>

namespace virtual_lamps {

namespace {

constexpr std::size_t kLabelWidth = 32;
constexpr std::size_t kZonesPerMessage = 8;

Bytes powerPayload(bool on)
{
    return PayloadWriter().u16(on ? 65535 : 0).get();
}

void writeColour(PayloadWriter& writer, const Hsbk& colour)
{
    writer.u16(colour.hue).u16(colour.saturation).u16(colour.brightness).u16(colour.kelvin);
}

Hsbk readColour(ByteView payload, std::size_t offset)
{
    const auto field = [&](std::size_t at) {
        return static_cast<std::uint16_t>(readInteger(payload, offset + at, 2));
    };
    return {field(0), field(2), field(4), field(6)};
}

Milliseconds readDuration(ByteView payload, std::size_t offset)
{
    return Milliseconds(readInteger(payload, offset, 4));
}

Bytes membershipPayload(const Membership& membership)
{
    return PayloadWriter()
        .bytes(membership.guid)
        .text(membership.label, kLabelWidth)
        .u64(membership.updatedAt)
        .get();
}

Membership readMembership(ByteView payload)
{
    Membership membership;
    for (std::size_t i = 0; i < membership.guid.size(); ++i)
        membership.guid[i] = static_cast<std::uint8_t>(readInteger(payload, i, 1));
    membership.label = readText(payload, 16, kLabelWidth);
    membership.updatedAt = readInteger(payload, 48, 8);
    return membership;
}

/// The shortest payload that a lamp acts on.
std::size_t shortestPayload(std::uint16_t type)
{
    switch (type) {
    case message::SetPower:
        return 2;
    case message::SetLabel:
        return 32;
    case message::SetTags:
        return 8;
    case message::SetTagLabels:
        return 40;
    case message::SetLocation:
    case message::SetGroup:
        return 56;
    case message::LightSetColor:
        return 13;
    case message::LightSetPower:
        return 6;
    case message::SetColorZones:
        return 15;
    case message::GetColorZones:
        return 2;
    default:
        return 0;
    }
}

bool isGet(std::uint16_t type)
{
    switch (type) {
    case message::GetService:
    case message::GetPower:
    case message::GetLabel:
    case message::GetTags:
    case message::GetTagLabels:
    case message::GetVersion:
    case message::GetLocation:
    case message::GetGroup:
    case message::EchoRequest:
    case message::LightGet:
    case message::LightGetPower:
    case message::GetColorZones:
        return true;
    default:
        return false;
    }
}

} // namespace

Product productWithID(std::uint32_t id)
{
    constexpr std::uint32_t kWhite[] = {10, 11, 18, 50, 51, 60, 61, 66, 87, 88};
    constexpr std::uint32_t kMultizone[] = {31, 32, 38, 117, 118, 119, 120};
    Product product{.id = id};
    if (std::find(std::begin(kWhite), std::end(kWhite), id) != std::end(kWhite)) {
        product.colour = false;
        product.coolest = 6500;
        product.warmest = 2700;
    }
    product.multizone
        = std::find(std::begin(kMultizone), std::end(kMultizone), id) != std::end(kMultizone);
    return product;
}

VirtualLamp::VirtualLamp(const MacAddress& mac, const Product& product, std::size_t zones)
    : m_mac(mac)
    , m_product(product)
    , m_colour(possible({}))
    , m_zones(product.multizone ? zones : 0, m_colour)
{
}

std::vector<Bytes> VirtualLamp::handle(ByteView datagram, Time now)
{
    const auto request = readRequest(datagram);
    const MacAddress everybody{};
    if (!request || (request->target != m_mac && request->target != everybody))
        return {};
    if (request->payload.size() < shortestPayload(request->type))
        return {};

    std::vector<Bytes> datagrams;
    const auto reply = [&](std::uint16_t type, const Bytes& payload) {
        datagrams.push_back(writeReply(*request, m_mac, type, payload));
    };
    if (request->acknowledgementRequired)
        reply(message::Acknowledgement, {});
    apply(*request, now);
    bool understood = true;
    const Replies states = answer(*request, now, understood);
    if (!understood && request->responseRequired)
        reply(message::StateUnhandled, PayloadWriter().u16(request->type).get());
    if (isGet(request->type) || request->responseRequired) {
        for (const Reply& state : states)
            reply(state.type, state.payload);
    }
    return datagrams;
}

void VirtualLamp::apply(const Request& request, Time now)
{
    const ByteView payload = request.payload;
    switch (request.type) {
    case message::SetPower:
        setPower(readInteger(payload, 0, 2) != 0, now);
        break;
    case message::LightSetPower:
        setPower(readInteger(payload, 0, 2) != 0, now, readDuration(payload, 2));
        break;
    case message::SetLabel:
        label = readText(payload, 0, kLabelWidth);
        break;
    case message::SetTags:
        tags = readInteger(payload, 0, 8);
        break;
    case message::SetTagLabels:
        setTagLabels(request);
        break;
    case message::SetLocation:
        location = readMembership(payload);
        break;
    case message::SetGroup:
        group = readMembership(payload);
        break;
    case message::LightSetColor:
        setColour(readColour(payload, 1), now, readDuration(payload, 9));
        break;
    case message::SetColorZones:
        setColourZones(request, now);
        break;
    default:
        break;
    }
}

VirtualLamp::Replies VirtualLamp::answer(const Request& request, Time now, bool& understood)
{
    switch (request.type) {
    case message::GetService: {
        constexpr unsigned kUdp = 1;
        constexpr unsigned kReserved = 5; // real lamps name this one as well
        return {{message::StateService, PayloadWriter().u8(kUdp).u32(kLifxPort).get()},
            {message::StateService, PayloadWriter().u8(kReserved).u32(kLifxPort).get()}};
    }
    case message::GetPower:
    case message::SetPower:
        return {{message::StatePower, powerPayload(power(now))}};
    case message::LightGetPower:
    case message::LightSetPower:
        return {{message::LightStatePower, powerPayload(power(now))}};
    case message::GetLabel:
    case message::SetLabel:
        return {{message::StateLabel, PayloadWriter().text(label, kLabelWidth).get()}};
    case message::GetTags:
    case message::SetTags:
        return {{message::StateTags, PayloadWriter().u64(tags).get()}};
    case message::GetTagLabels:
    case message::SetTagLabels:
        return tagLabelStates(request);
    case message::GetVersion:
        return {{message::StateVersion, PayloadWriter().u32(1).u32(m_product.id).u32(0).get()}};
    case message::GetLocation:
    case message::SetLocation:
        return {{message::StateLocation, membershipPayload(location)}};
    case message::GetGroup:
    case message::SetGroup:
        return {{message::StateGroup, membershipPayload(group)}};
    case message::EchoRequest:
        return {{message::EchoResponse, Bytes(request.payload.begin(), request.payload.end())}};
    case message::LightGet:
    case message::LightSetColor:
        return {{message::LightState, lightState(now)}};
    case message::SetColorZones:
    case message::GetColorZones:
        return zoneStates(request, now);
    default:
        understood = false;
        return {};
    }
}

void VirtualLamp::setTagLabels(const Request& request)
{
    const std::uint64_t tag = readInteger(request.payload, 0, 8);
    const std::string text = readText(request.payload, 8, kLabelWidth);
    if (text.empty())
        tagLabels.erase(tag);
    else
        tagLabels[tag] = text;
}

void VirtualLamp::setColourZones(const Request& request, Time now)
{
    enum Application { Later = 0, Now = 1, OnlyWaiting = 2 };
    const ByteView payload = request.payload;
    const auto mode = readInteger(payload, 14, 1);
    const auto last = std::min<std::size_t>(readInteger(payload, 1, 1) + 1, m_zones.size());
    if (mode != OnlyWaiting) {
        for (std::size_t i = readInteger(payload, 0, 1); i < last; ++i)
            m_zonesToApply[i] = {readColour(payload, 2), readDuration(payload, 10)};
    }
    if (mode == Later)
        return;
    for (const auto& [index, change] : m_zonesToApply)
        setZone(index, change.first, now, change.second);
    m_zonesToApply.clear();
}

Bytes VirtualLamp::lightState(Time now) const
{
    PayloadWriter state;
    writeColour(state, m_zones.empty() ? m_colour.at(now) : m_zones.front().at(now));
    state.u16(0).u16(power(now) ? 65535 : 0).text(label, kLabelWidth).u64(tags);
    return state.get();
}

VirtualLamp::Replies VirtualLamp::tagLabelStates(const Request& request) const
{
    const std::uint64_t mask = readInteger(request.payload, 0, 8);
    Replies replies;
    for (const auto& [tag, text] : tagLabels) {
        if (mask == 0 || (mask & tag) != 0) {
            replies.push_back(
                {message::StateTagLabels, PayloadWriter().u64(tag).text(text, kLabelWidth).get()});
        }
    }
    return replies;
}

VirtualLamp::Replies VirtualLamp::zoneStates(const Request& request, Time now) const
{
    const std::size_t first = readInteger(request.payload, 0, 1);
    const std::size_t last
        = std::min<std::size_t>(readInteger(request.payload, 1, 1), m_zones.size() - 1);
    if (m_zones.empty() || first > last)
        return {};
    const auto count = static_cast<unsigned>(m_zones.size());
    if (first == last) {
        PayloadWriter one;
        one.u8(count).u8(static_cast<unsigned>(first));
        writeColour(one, zone(first, now));
        return {{message::StateZone, one.get()}};
    }
    Replies replies;
    for (std::size_t start = first - first % kZonesPerMessage; start <= last;
         start += kZonesPerMessage) {
        PayloadWriter eight;
        eight.u8(count).u8(static_cast<unsigned>(start));
        for (std::size_t i = start; i < start + kZonesPerMessage; ++i)
            writeColour(eight, i < m_zones.size() ? zone(i, now) : Hsbk{0, 0, 0, 0});
        replies.push_back({message::StateMultiZone, eight.get()});
    }
    return replies;
}

Hsbk VirtualLamp::possible(Hsbk colour) const
{
    colour.kelvin = std::clamp(colour.kelvin, m_product.warmest, m_product.coolest);
    if (!m_product.colour) {
        colour.hue = 0;
        colour.saturation = 0;
    }
    return colour;
}

void VirtualLamp::setPower(bool on, Time now, Milliseconds duration)
{
    m_power.fadeTo(on, now, duration);
}

void VirtualLamp::setColour(const Hsbk& colour, Time now, Milliseconds duration)
{
    m_colour.fadeTo(possible(colour), now, duration);
    for (ColourFade& each : m_zones)
        each.fadeTo(possible(colour), now, duration);
}

void VirtualLamp::setZone(std::size_t index, const Hsbk& colour, Time now, Milliseconds duration)
{
    m_zones.at(index).fadeTo(possible(colour), now, duration);
}

} // namespace virtual_lamps
