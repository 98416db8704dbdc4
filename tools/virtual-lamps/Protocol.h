#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The lamp's side of the published LIFX LAN protocol (lan.developer.lifx.com).
namespace virtual_lamps {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;
using MacAddress = std::array<std::uint8_t, 8>; ///< six bytes of address, two of zero

inline constexpr std::uint16_t kLifxPort = 56700;
inline constexpr std::size_t kHeaderLength = 36;

namespace message {
enum Type : std::uint16_t {
    GetService = 2,
    StateService = 3,
    GetPower = 20,
    SetPower = 21,
    StatePower = 22,
    GetLabel = 23,
    SetLabel = 24,
    StateLabel = 25,
    GetTags = 26,
    SetTags = 27,
    StateTags = 28,
    GetTagLabels = 29,
    SetTagLabels = 30,
    StateTagLabels = 31,
    GetVersion = 32,
    StateVersion = 33,
    Acknowledgement = 45,
    GetLocation = 48,
    SetLocation = 49,
    StateLocation = 50,
    GetGroup = 51,
    SetGroup = 52,
    StateGroup = 53,
    EchoRequest = 58,
    EchoResponse = 59,
    LightGet = 101,
    LightSetColor = 102,
    LightState = 107,
    LightGetPower = 116,
    LightSetPower = 117,
    LightStatePower = 118,
    StateUnhandled = 223,
    SetColorZones = 501,
    GetColorZones = 502,
    StateZone = 503,
    StateMultiZone = 506,
};
}

std::string_view nameOfMessage(std::uint16_t type);

/// A request as a lamp reads it. The payload runs to the end of the datagram, whatever the size
/// field says: some clients do not count all of it.
struct Request {
    std::uint32_t source = 0;
    MacAddress target{};
    bool tagged = false;
    bool responseRequired = false;
    bool acknowledgementRequired = false;
    std::uint8_t sequence = 0;
    std::uint16_t type = 0;
    ByteView payload;
};

/// Nothing for bytes that no lamp would take for a request.
std::optional<Request> readRequest(ByteView datagram);

/// Little-endian fields one behind the other.
class PayloadWriter {
public:
    PayloadWriter& u8(unsigned value);
    PayloadWriter& u16(unsigned value);
    PayloadWriter& u32(std::uint32_t value);
    PayloadWriter& u64(std::uint64_t value);
    PayloadWriter& text(std::string_view value, std::size_t width);
    PayloadWriter& bytes(ByteView value);
    const Bytes& get() const { return m_bytes; }

private:
    Bytes m_bytes;
};

/// Little-endian fields by offset; zero past the end.
std::uint64_t readInteger(ByteView bytes, std::size_t offset, std::size_t width);
/// The text of a zero-filled field.
std::string readText(ByteView bytes, std::size_t offset, std::size_t width);

/// A lamp's answer: source and sequence are those of the request.
Bytes writeReply(
    const Request& to, const MacAddress& lamp, std::uint16_t type, const Bytes& payload);

std::string hexText(ByteView bytes);
/// A JSON string, quotes included.
std::string jsonText(std::string_view text);

} // namespace virtual_lamps
