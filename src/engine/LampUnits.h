#pragma once

#include "engine/Records.h"

#include <cstdint>

namespace lumeroom {

/// Colour as the LIFX LAN protocol carries it: four unsigned 16-bit numbers, the last in kelvin.
/// See "Representing color with HSBK" in the published protocol documentation.
struct WireColour {
    std::uint16_t hue = 0;
    std::uint16_t saturation = 0;
    std::uint16_t brightness = 0;
    std::uint16_t kelvin = 0;

    bool operator==(const WireColour&) const = default;
};

// The whites, in kelvin. Warmth is the distance from the coolest.
inline constexpr int kCoolestKelvin = 9000;
inline constexpr int kWarmestKelvin = 2500;
inline constexpr int kMostWarmth = kCoolestKelvin - kWarmestKelvin;

inline constexpr int kMostLevel = 255; ///< of brightness and of saturation
inline constexpr int kMostColour = 65535;

/// From lamp units; absent members count as 0. Brightness and saturation are multiplied by 255, so
/// a full 255 goes out as 65025 and is read back as 253.
WireColour toWire(const LampColour& colour);

/// To lamp units, all four present.
LampColour fromWire(const WireColour& colour);

/// What to send for a lamp to report this: the least brightness, and fullness of colour, that reads
/// back as it. No member goes beyond its range: what a lamp has above that is not reached.
LampColour sentWhenReported(const LampColour& reported);

/// Seconds as whole milliseconds, cut to 32 bits.
std::uint32_t millisecondsFromSeconds(double seconds);

/// A colour command's transition: never under 100 milliseconds.
std::uint32_t colourDurationMilliseconds(double seconds);

/// The integer part of a number from a settings dictionary; 0 for what is none.
std::int64_t integerPart(double value);

} // namespace lumeroom
