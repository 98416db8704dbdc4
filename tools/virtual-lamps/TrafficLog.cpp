#include "TrafficLog.h"

#include <fmt/chrono.h>

#include <chrono>

namespace virtual_lamps {

namespace {

std::string colourFields(ByteView payload, std::size_t offset)
{
    const auto field = [&](std::size_t at) { return readInteger(payload, offset + at, 2); };
    return fmt::format(R"("hue":{},"saturation":{},"brightness":{},"kelvin":{})", field(0),
        field(2), field(4), field(6));
}

std::string membershipFields(ByteView payload)
{
    return fmt::format(R"("guid":"{}","label":{},"updated_at":{})",
        hexText(payload.first(std::min<std::size_t>(16, payload.size()))),
        jsonText(readText(payload, 16, 32)), readInteger(payload, 48, 8));
}

/// The payload's fields by name, for the messages worth reading; empty for the others.
std::string fieldsOf(std::uint16_t type, ByteView payload)
{
    switch (type) {
    case message::StateService:
        return fmt::format(
            R"("service":{},"port":{})", readInteger(payload, 0, 1), readInteger(payload, 1, 4));
    case message::LightSetColor:
        return fmt::format(
            R"({},"duration":{})", colourFields(payload, 1), readInteger(payload, 9, 4));
    case message::LightState:
        return fmt::format(R"({},"power":{},"label":{})", colourFields(payload, 0),
            readInteger(payload, 10, 2), jsonText(readText(payload, 12, 32)));
    case message::LightSetPower:
        return fmt::format(
            R"("level":{},"duration":{})", readInteger(payload, 0, 2), readInteger(payload, 2, 4));
    case message::SetColorZones:
        return fmt::format(R"("start":{},"end":{},{},"duration":{},"apply":{})",
            readInteger(payload, 0, 1), readInteger(payload, 1, 1), colourFields(payload, 2),
            readInteger(payload, 10, 4), readInteger(payload, 14, 1));
    case message::GetColorZones:
        return fmt::format(
            R"("start":{},"end":{})", readInteger(payload, 0, 1), readInteger(payload, 1, 1));
    case message::StateZone:
    case message::StateMultiZone:
        return fmt::format(R"("count":{},"index":{},{})", readInteger(payload, 0, 1),
            readInteger(payload, 1, 1), colourFields(payload, 2));
    case message::SetLabel:
    case message::StateLabel:
        return fmt::format(R"("label":{})", jsonText(readText(payload, 0, 32)));
    case message::SetTags:
    case message::StateTags:
        return fmt::format(R"("tags":{})", readInteger(payload, 0, 8));
    case message::SetTagLabels:
    case message::StateTagLabels:
        return fmt::format(R"("tag":{},"label":{})", readInteger(payload, 0, 8),
            jsonText(readText(payload, 8, 32)));
    case message::SetGroup:
    case message::StateGroup:
    case message::SetLocation:
    case message::StateLocation:
        return membershipFields(payload);
    case message::StateVersion:
        return fmt::format(
            R"("vendor":{},"product":{})", readInteger(payload, 0, 4), readInteger(payload, 4, 4));
    default:
        return {};
    }
}

std::string presentTime()
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto micros = duration_cast<microseconds>(now.time_since_epoch()) % 1'000'000;
    return fmt::format(
        "{:%Y-%m-%dT%H:%M:%S}.{:06}Z", fmt::gmtime(system_clock::to_time_t(now)), micros.count());
}

} // namespace

std::string jsonLine(const Traffic& traffic)
{
    const ByteView payload = traffic.datagram.size() > kHeaderLength
        ? traffic.datagram.subspan(kHeaderLength)
        : ByteView();
    const auto type = static_cast<std::uint16_t>(readInteger(traffic.datagram, 32, 2));
    std::string line = fmt::format(
        R"({{"time":"{}","direction":"{}","lamp":{},"id":"{}","peer":"{}","type":{},"name":"{}")",
        presentTime(), traffic.incoming ? "in" : "out", jsonText(traffic.lampLabel), traffic.lampID,
        traffic.peer, type, nameOfMessage(type));
    if (const std::string fields = fieldsOf(type, payload); !fields.empty())
        line += ",\"fields\":{" + fields + "}";
    if (!traffic.note.empty())
        line += ",\"note\":" + jsonText(traffic.note);
    return line + ",\"bytes\":\"" + hexText(traffic.datagram) + "\"}";
}

} // namespace virtual_lamps
