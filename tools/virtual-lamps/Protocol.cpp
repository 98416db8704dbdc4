#include "Protocol.h"

#include <fmt/core.h>

#include <algorithm>

namespace virtual_lamps {

std::string_view nameOfMessage(std::uint16_t type)
{
    switch (type) {
    case message::GetService:
        return "GetService";
    case message::StateService:
        return "StateService";
    case message::GetPower:
        return "GetPower";
    case message::SetPower:
        return "SetPower";
    case message::StatePower:
        return "StatePower";
    case message::GetLabel:
        return "GetLabel";
    case message::SetLabel:
        return "SetLabel";
    case message::StateLabel:
        return "StateLabel";
    case message::GetTags:
        return "GetTags";
    case message::SetTags:
        return "SetTags";
    case message::StateTags:
        return "StateTags";
    case message::GetTagLabels:
        return "GetTagLabels";
    case message::SetTagLabels:
        return "SetTagLabels";
    case message::StateTagLabels:
        return "StateTagLabels";
    case message::GetVersion:
        return "GetVersion";
    case message::StateVersion:
        return "StateVersion";
    case message::Acknowledgement:
        return "Acknowledgement";
    case message::GetLocation:
        return "GetLocation";
    case message::SetLocation:
        return "SetLocation";
    case message::StateLocation:
        return "StateLocation";
    case message::GetGroup:
        return "GetGroup";
    case message::SetGroup:
        return "SetGroup";
    case message::StateGroup:
        return "StateGroup";
    case message::EchoRequest:
        return "EchoRequest";
    case message::EchoResponse:
        return "EchoResponse";
    case message::LightGet:
        return "LightGet";
    case message::LightSetColor:
        return "LightSetColor";
    case message::LightState:
        return "LightState";
    case message::LightGetPower:
        return "LightGetPower";
    case message::LightSetPower:
        return "LightSetPower";
    case message::LightStatePower:
        return "LightStatePower";
    case message::StateUnhandled:
        return "StateUnhandled";
    case message::SetColorZones:
        return "SetColorZones";
    case message::GetColorZones:
        return "GetColorZones";
    case message::StateZone:
        return "StateZone";
    case message::StateMultiZone:
        return "StateMultiZone";
    default:
        return "Unknown";
    }
}

std::optional<Request> readRequest(ByteView datagram)
{
    constexpr std::uint16_t kProtocol = 1024;
    if (datagram.size() < kHeaderLength)
        return {};
    const auto word = static_cast<std::uint16_t>(readInteger(datagram, 2, 2));
    if ((word & 0x0FFFU) != kProtocol)
        return {};
    Request request;
    request.tagged = (word & 0x2000U) != 0;
    request.source = static_cast<std::uint32_t>(readInteger(datagram, 4, 4));
    std::copy_n(datagram.begin() + 8, request.target.size(), request.target.begin());
    request.responseRequired = (datagram[22] & 1U) != 0;
    request.acknowledgementRequired = (datagram[22] & 2U) != 0;
    request.sequence = datagram[23];
    request.type = static_cast<std::uint16_t>(readInteger(datagram, 32, 2));
    request.payload = datagram.subspan(kHeaderLength);
    return request;
}

PayloadWriter& PayloadWriter::u8(unsigned value)
{
    m_bytes.push_back(static_cast<std::uint8_t>(value));
    return *this;
}

PayloadWriter& PayloadWriter::u16(unsigned value)
{
    return u8(value & 0xFFU).u8(value >> 8U);
}

PayloadWriter& PayloadWriter::u32(std::uint32_t value)
{
    return u16(value & 0xFFFFU).u16(value >> 16U);
}

PayloadWriter& PayloadWriter::u64(std::uint64_t value)
{
    return u32(static_cast<std::uint32_t>(value)).u32(static_cast<std::uint32_t>(value >> 32U));
}

PayloadWriter& PayloadWriter::text(std::string_view value, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i)
        u8(i < value.size() ? static_cast<unsigned char>(value[i]) : 0U);
    return *this;
}

PayloadWriter& PayloadWriter::bytes(ByteView value)
{
    m_bytes.insert(m_bytes.end(), value.begin(), value.end());
    return *this;
}

std::uint64_t readInteger(ByteView bytes, std::size_t offset, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width && offset + i < bytes.size(); ++i)
        value |= static_cast<std::uint64_t>(bytes[offset + i]) << (8 * i);
    return value;
}

std::string readText(ByteView bytes, std::size_t offset, std::size_t width)
{
    std::string text;
    for (std::size_t i = offset; i < std::min(offset + width, bytes.size()) && bytes[i] != 0; ++i)
        text += static_cast<char>(bytes[i]);
    return text;
}

Bytes writeReply(
    const Request& to, const MacAddress& lamp, std::uint16_t type, const Bytes& payload)
{
    constexpr std::uint16_t kAddressable = 0x1400;
    PayloadWriter frame;
    frame.u16(static_cast<unsigned>(kHeaderLength + payload.size())).u16(kAddressable);
    frame.u32(to.source).bytes(lamp);
    frame.text("LIFXV2", 6).u8(0).u8(to.sequence).u64(0).u16(type).u16(0).bytes(payload);
    return frame.get();
}

std::string hexText(ByteView bytes)
{
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += fmt::format("{:02x}", byte);
    return text;
}

std::string jsonText(std::string_view text)
{
    std::string json = "\"";
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\')
            json += '\\';
        if (code < 0x20)
            json += fmt::format("\\u{:04x}", code);
        else
            json += character;
    }
    return json + '"';
}

} // namespace virtual_lamps
