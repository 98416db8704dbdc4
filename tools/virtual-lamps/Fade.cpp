#include "Fade.h"

#include <algorithm>
#include <cmath>

namespace virtual_lamps {

namespace {

/// How much of the way is done, from 0 to 1.
double progress(Time start, Milliseconds duration, Time now)
{
    if (duration.count() <= 0 || now >= start + duration)
        return 1;
    const std::chrono::duration<double, std::milli> gone = now - start;
    return std::clamp(gone.count() / static_cast<double>(duration.count()), 0.0, 1.0);
}

std::uint16_t between(std::uint16_t from, std::uint16_t to, double part)
{
    return static_cast<std::uint16_t>(std::lround(from + (to - from) * part));
}

std::uint16_t hueBetween(std::uint16_t from, std::uint16_t to, double part)
{
    const auto shortWay = static_cast<std::int16_t>(static_cast<std::uint16_t>(to - from));
    return static_cast<std::uint16_t>(from + std::lround(shortWay * part));
}

} // namespace

Hsbk ColourFade::at(Time now) const
{
    const double part = progress(m_start, m_duration, now);
    return {hueBetween(m_from.hue, m_to.hue, part),
        between(m_from.saturation, m_to.saturation, part),
        between(m_from.brightness, m_to.brightness, part),
        between(m_from.kelvin, m_to.kelvin, part)};
}

void ColourFade::fadeTo(const Hsbk& colour, Time now, Milliseconds duration)
{
    m_from = at(now);
    m_to = colour;
    m_start = now;
    m_duration = duration;
}

double PowerFade::level(Time now) const
{
    return m_from + (m_to - m_from) * progress(m_start, m_duration, now);
}

void PowerFade::fadeTo(bool on, Time now, Milliseconds duration)
{
    m_from = level(now);
    m_to = on ? 1 : 0;
    m_start = now;
    m_duration = duration;
    if (on && m_from == 0)
        m_from = 1.0 / 65535; // it counts as on from the first moment
}

} // namespace virtual_lamps
