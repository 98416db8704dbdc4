#pragma once

#include "Fade.h"
#include "Protocol.h"

#include <map>

namespace virtual_lamps {

/// What a kind of lamp can do.
struct Product {
    std::uint32_t id = 27;
    bool colour = true;
    bool multizone = false;
    std::uint16_t coolest = 9000; ///< kelvin
    std::uint16_t warmest = 2500;
};

/// A known product number, or a colour lamp for any other.
Product productWithID(std::uint32_t id);

/// A group or location as a lamp stores it.
struct Membership {
    std::array<std::uint8_t, 16> guid{};
    std::string label;
    std::uint64_t updatedAt = 0;
};

/// One lamp: what it stores and how it answers. It is told the time and has no socket.
class VirtualLamp {
public:
    VirtualLamp(const MacAddress& mac, const Product& product, std::size_t zones);

    /// The answers to one datagram, in order. A datagram for another lamp has none.
    std::vector<Bytes> handle(ByteView datagram, Time now);

    const MacAddress& mac() const { return m_mac; }
    const Product& product() const { return m_product; }

    // The lamp's own side: what somebody does to it by another remote, and what it holds
    std::string label;
    Membership group;
    Membership location;
    std::uint64_t tags = 0;
    std::map<std::uint64_t, std::string> tagLabels;

    bool power(Time now) const { return m_power.isOn(now); }
    void setPower(bool on, Time now, Milliseconds duration = {});
    Hsbk colour(Time now) const { return m_colour.at(now); }
    /// Of the whole lamp, its zones included.
    void setColour(const Hsbk& colour, Time now, Milliseconds duration = {});
    std::size_t zoneCount() const { return m_zones.size(); }
    Hsbk zone(std::size_t index, Time now) const { return m_zones.at(index).at(now); }
    void setZone(std::size_t index, const Hsbk& colour, Time now, Milliseconds duration = {});

private:
    struct Reply {
        std::uint16_t type;
        Bytes payload;
    };
    using Replies = std::vector<Reply>;

    /// The state that answers a Get, or a Set that asks for an answer. Changes are made here too.
    Replies answer(const Request& request, Time now, bool& understood);
    void apply(const Request& request, Time now);
    void setTagLabels(const Request& request);
    void setColourZones(const Request& request, Time now);
    Bytes lightState(Time now) const;
    Replies tagLabelStates(const Request& request) const;
    Replies zoneStates(const Request& request, Time now) const;
    Hsbk possible(Hsbk colour) const;

    MacAddress m_mac;
    Product m_product;
    PowerFade m_power;
    ColourFade m_colour;
    std::vector<ColourFade> m_zones;
    std::map<std::size_t, std::pair<Hsbk, Milliseconds>> m_zonesToApply;
};

} // namespace virtual_lamps
