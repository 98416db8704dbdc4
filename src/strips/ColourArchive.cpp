#include "strips/ColourArchive.h"

#include "base/Log.h"
#include "strips/KeyedArchive.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lumeroom {

namespace {

constexpr std::string_view kHue = "hue";
constexpr std::string_view kSaturation = "saturation";
constexpr std::string_view kBrightness = "brightness";
constexpr std::string_view kKelvin = "kelvin";

/// A number of the archive; nothing for what is none.
std::optional<double> number(const Value::Dictionary& dictionary, std::string_view key)
{
    const auto found = dictionary.find(key);
    if (found == dictionary.end())
        return {};
    const Value& value = found->second;
    const bool isNumber = value.is<double>() || value.is<std::int64_t>() || value.is<bool>();
    return isNumber && std::isfinite(value.doubleValue()) ? std::optional(value.doubleValue())
                                                          : std::nullopt;
}

std::optional<float> component(const Value::Dictionary& dictionary, std::string_view key)
{
    const auto found = number(dictionary, key);
    if (!found)
        return {};
    return static_cast<float>(std::clamp(*found, 0.0, 1.0));
}

int kelvinOf(const Value::Dictionary& dictionary)
{
    constexpr double kMost = std::numeric_limits<int>::max();
    const double kelvin = number(dictionary, kKelvin).value_or(kDefaultKelvin);
    return static_cast<int>(std::clamp(kelvin, -kMost, kMost));
}

} // namespace

Value::Data archivedColour(Colour& colour)
{
    if (!colour.kelvin)
        colour.kelvin = kDefaultKelvin;
    return keyedArchiveOf({
        {std::string(kHue), static_cast<double>(colour.hue)},
        {std::string(kSaturation), static_cast<double>(colour.saturation)},
        {std::string(kBrightness), static_cast<double>(colour.brightness)},
        {std::string(kKelvin), *colour.kelvin},
    });
}

std::optional<Colour> colourUsingArchivedColour(const Value::Data* data, Log& log)
{
    if (!data) {
        log.line("unable to make colour with nil archive");
        return {};
    }
    const auto dictionary = dictionaryFromKeyedArchive(*data).value_or(Value::Dictionary());
    const auto hue = component(dictionary, kHue);
    const auto saturation = component(dictionary, kSaturation);
    const auto brightness = component(dictionary, kBrightness);
    if (!hue || !saturation || !brightness) {
        log.line("unable to make colour using archived colour: {}", description(*data));
        return Colour{1, 1, 1, 1, {}};
    }
    return Colour{*hue, *saturation, *brightness, 1, kelvinOf(dictionary)};
}

} // namespace lumeroom
