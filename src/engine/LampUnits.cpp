#include "engine/LampUnits.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

namespace {

// Nearly 1/257. Reading is not the inverse of writing, which multiplies by 255.
constexpr double kByteFromWire = 0.003891050583658;

std::uint16_t lowBits(std::int64_t value)
{
    return static_cast<std::uint16_t>(static_cast<std::uint64_t>(value) & 0xFFFFU);
}

int byteFromWire(std::uint16_t value)
{
    return static_cast<int>(static_cast<double>(static_cast<float>(value)) * kByteFromWire);
}

int levelReportedAs(std::int64_t reported)
{
    int level = static_cast<int>(std::clamp<std::int64_t>(reported, 0, kMostLevel));
    while (level < kMostLevel
        && byteFromWire(static_cast<std::uint16_t>(level * kMostLevel)) < reported)
        ++level;
    return level;
}

} // namespace

std::int64_t integerPart(double value)
{
    // Beyond this a double has no exact neighbours and the cast would be undefined.
    constexpr double kLargest = 9.0e15;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int64_t>(std::clamp(value, -kLargest, kLargest));
}

WireColour toWire(const LampColour& colour)
{
    return {
        .hue = lowBits(integerPart(colour.colour.value_or(0))),
        .saturation
        = lowBits((kMostLevel - integerPart(colour.saturation.value_or(0))) * kMostLevel),
        .brightness = lowBits(integerPart(colour.brightness.value_or(0)) * kMostLevel),
        .kelvin = lowBits(kCoolestKelvin - integerPart(colour.warmth.value_or(0))),
    };
}

LampColour fromWire(const WireColour& colour)
{
    return {
        .colour = colour.hue,
        .saturation = kMostLevel - byteFromWire(colour.saturation),
        .brightness = byteFromWire(colour.brightness),
        .warmth = lowBits(kCoolestKelvin - static_cast<std::int64_t>(colour.kelvin)),
    };
}

LampColour sentWhenReported(const LampColour& reported)
{
    LampColour sent = reported;
    if (sent.brightness)
        sent.brightness = levelReportedAs(integerPart(*sent.brightness));
    if (sent.saturation)
        sent.saturation = kMostLevel - levelReportedAs(kMostLevel - integerPart(*sent.saturation));
    return sent;
}

std::uint32_t millisecondsFromSeconds(double seconds)
{
    return static_cast<std::uint32_t>(
        static_cast<std::uint64_t>(integerPart(seconds * 1000.0)) & 0xFFFFFFFFU);
}

std::uint32_t colourDurationMilliseconds(double seconds)
{
    return std::max<std::uint32_t>(millisecondsFromSeconds(seconds), 100);
}

} // namespace lumeroom
