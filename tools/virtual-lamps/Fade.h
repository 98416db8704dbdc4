#pragma once

#include <chrono>
#include <cstdint>

namespace virtual_lamps {

using Time = std::chrono::steady_clock::time_point;
using Milliseconds = std::chrono::milliseconds;

/// A colour as it goes over the wire.
struct Hsbk {
    std::uint16_t hue = 0;
    std::uint16_t saturation = 0;
    std::uint16_t brightness = 65535;
    std::uint16_t kelvin = 3500;

    bool operator==(const Hsbk&) const = default;
};

/// A colour on its way from one value to another; the hue takes the short way round.
class ColourFade {
public:
    ColourFade() = default;
    explicit ColourFade(const Hsbk& colour)
        : m_from(colour)
        , m_to(colour)
    {
    }

    Hsbk at(Time now) const;
    const Hsbk& target() const { return m_to; }
    void fadeTo(const Hsbk& colour, Time now, Milliseconds duration);

private:
    Hsbk m_from;
    Hsbk m_to;
    Time m_start;
    Milliseconds m_duration{0};
};

/// Power that rises and falls over a time. A lamp reports full power as soon as it rises, and 0
/// once it is dark.
class PowerFade {
public:
    bool isOn(Time now) const { return level(now) > 0; }
    /// Between 0 and 1.
    double level(Time now) const;
    void fadeTo(bool on, Time now, Milliseconds duration);

private:
    double m_from = 0;
    double m_to = 0;
    Time m_start;
    Milliseconds m_duration{0};
};

} // namespace virtual_lamps
