#pragma once

#include "engine/UdpSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <cstring>

/// Datagrams as lamps send them, written without the engine's own frame builders.
namespace lumeroom::test {

/// Appends little-endian integers, bytes and text.
class Bytes {
public:
    template <typename T> Bytes& put(T value)
    {
        for (std::size_t i = 0; i < sizeof(T); ++i)
            m_bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        return *this;
    }
    Bytes& u8(unsigned value) { return put(static_cast<std::uint8_t>(value)); }
    Bytes& u16(unsigned value) { return put(static_cast<std::uint16_t>(value)); }
    Bytes& u32(std::uint32_t value) { return put(value); }
    Bytes& u64(std::uint64_t value) { return put(value); }
    Bytes& text(std::string_view value, std::size_t width)
    {
        for (std::size_t i = 0; i < width; ++i)
            u8(i < value.size() ? static_cast<unsigned char>(value[i]) : 0U);
        return *this;
    }
    const Datagram& get() const { return m_bytes; }

private:
    Datagram m_bytes;
};

/// The n-th lamp's target.
inline std::array<std::uint8_t, 8> target(unsigned n)
{
    return {0xd0, 0x73, 0xd5, 0, static_cast<std::uint8_t>(n / 256), static_cast<std::uint8_t>(n),
        0, 0};
}

inline std::string lampID(unsigned n)
{
    const char digits[] = "0123456789abcdef";
    return std::string("d073d50000") + digits[n / 16] + digits[n % 16] + "0000";
}

inline std::string lampAddress(unsigned n)
{
    return "127.0." + std::to_string(9 + n / 256) + "." + std::to_string(n % 256);
}

inline Datagram reply(unsigned type, unsigned lamp, const Bytes& payload)
{
    Bytes frame;
    frame.u16(static_cast<unsigned>(36 + payload.get().size())).u16(0x1400).u32(0x12345678);
    for (const std::uint8_t byte : target(lamp))
        frame.u8(byte);
    frame.u64(0).u64(0).u16(type).u16(0);
    Datagram datagram = frame.get();
    datagram.insert(datagram.end(), payload.get().begin(), payload.get().end());
    return datagram;
}

inline Datagram stateService(unsigned lamp)
{
    return reply(3, lamp, Bytes().u8(1).u32(56700));
}

struct LightState {
    unsigned hue = 0;
    unsigned saturation = 0;
    unsigned brightness = 0;
    unsigned kelvin = 3500;
    unsigned power = 0xFFFF;
    std::string label = "Lamp";
};

inline Datagram lightState(unsigned lamp, const LightState& state)
{
    Bytes payload;
    payload.u16(state.hue).u16(state.saturation).u16(state.brightness).u16(state.kelvin);
    return reply(107, lamp, payload.u16(0).u16(state.power).text(state.label, 32).u64(0));
}

constexpr unsigned kStateGroup = 53;
constexpr unsigned kStateLocation = 50;

inline Datagram stateGrouping(unsigned type, unsigned lamp, unsigned guidByte,
    std::string_view label, std::uint64_t updated = 7)
{
    Bytes payload;
    for (int i = 0; i < 16; ++i)
        payload.u8(guidByte);
    return reply(type, lamp, payload.text(label, 32).u64(updated));
}

inline Datagram stateVersion(unsigned lamp, std::uint32_t product)
{
    return reply(33, lamp, Bytes().u32(1).u32(product).u32(12));
}

inline Datagram stateTagLabels(unsigned lamp, std::uint64_t field, std::string_view label)
{
    return reply(31, lamp, Bytes().u64(field).text(label, 32));
}

inline Datagram stateTags(unsigned lamp, std::uint64_t field)
{
    return reply(28, lamp, Bytes().u64(field));
}

inline Datagram stateZone(unsigned lamp, unsigned count, unsigned zone, unsigned hue)
{
    return reply(503, lamp, Bytes().u8(count).u8(zone).u16(hue).u16(65535).u16(65535).u16(3500));
}

/// Eight zones whose hue is `hue` plus their place in the message.
inline Datagram stateMultizone(unsigned lamp, unsigned count, unsigned first, unsigned hue)
{
    Bytes payload;
    payload.u8(count).u8(first);
    for (unsigned n = 0; n < 8; ++n)
        payload.u16(hue + n).u16(65535).u16(65535).u16(3500);
    return reply(506, lamp, payload);
}

inline SocketAddress socketAddress(const std::string& host, std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    inet_pton(AF_INET, host.c_str(), &address.sin_addr);
    SocketAddress result;
    std::memcpy(result.bytes.data(), &address, sizeof address);
    result.length = sizeof address;
    return result;
}

inline std::string hex(std::span<const std::uint8_t> bytes)
{
    const char digits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

} // namespace lumeroom::test
