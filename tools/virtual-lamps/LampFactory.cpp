#include "LampFactory.h"

#include <arpa/inet.h>
#include <netinet/in.h>

namespace virtual_lamps {

MacAddress macAddressForNumber(unsigned number)
{
    return {0xd0, 0x73, 0xd5, static_cast<std::uint8_t>(number >> 16U),
        static_cast<std::uint8_t>(number >> 8U), static_cast<std::uint8_t>(number), 0, 0};
}

std::array<std::uint8_t, 16> guidForName(const std::string& name)
{
    // FNV-1a, once for each half with another start: any spread of bits will do.
    std::array<std::uint8_t, 16> guid{};
    for (std::size_t half = 0; half < 2; ++half) {
        std::uint64_t hash = 14695981039346656037ULL + half;
        for (const char character : name)
            hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211ULL;
        for (std::size_t i = 0; i < 8; ++i)
            guid[half * 8 + i] = static_cast<std::uint8_t>(hash >> (8 * i));
    }
    return guid;
}

Membership membershipNamed(const std::string& name)
{
    constexpr std::uint64_t kSomeTime = 1'700'000'000'000'000'000;
    return {guidForName(name), name, kSomeTime};
}

void putTag(VirtualLamp& lamp, const std::string& name, unsigned bit)
{
    const std::uint64_t tag = std::uint64_t(1) << bit;
    lamp.tags |= tag;
    lamp.tagLabels[tag] = name;
}

std::optional<std::string> addressBehind(const std::string& first, unsigned n)
{
    in_addr start{};
    if (::inet_pton(AF_INET, first.c_str(), &start) != 1)
        return {};
    std::uint32_t address = ntohl(start.s_addr);
    for (unsigned left = n;; ++address) {
        const unsigned last = address & 0xFFU;
        if (last == 0 || last == 255)
            continue;
        if (left-- == 0)
            break;
    }
    const in_addr found{htonl(address)};
    char text[INET_ADDRSTRLEN] = {};
    ::inet_ntop(AF_INET, &found, text, sizeof text);
    return text;
}

} // namespace virtual_lamps
