#pragma once

#include <optional>

namespace lumeroom {

/// A colour by hue, saturation, brightness and alpha, each from 0 to 1, with an optional colour
/// temperature in kelvin, normally 2500 to 9000, that rides beside it.
struct Colour {
    float hue = 0;
    float saturation = 0;
    float brightness = 0;
    float alpha = 1;
    std::optional<int> kelvin;

    /// A grey of this brightness: no hue, no saturation.
    static Colour grey(float white) { return {0, 0, white, 1, {}}; }
    bool operator==(const Colour&) const = default;
};

/// Red, green, blue and alpha, each from 0 to 1.
struct Rgba {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    bool operator==(const Rgba&) const = default;
};

/// The usual hexcone conversion.
Rgba rgbaFrom(const Colour& colour);

/// The kelvin if it lies in the range that the warmth slider and the picker can show.
std::optional<int> usableKelvin(const Colour& colour);

/// What a colour without kelvin counts as where one is needed.
inline constexpr int kDefaultKelvin = 3500;

} // namespace lumeroom
