#include "strips/ColourArchive.h"

#include "base/Log.h"
#include "strips/KeyedArchive.h"

namespace lumeroom {

namespace {

std::optional<float> component(const Value::Dictionary& dictionary, std::string_view key)
{
    const auto found = dictionary.find(key);
    if (found == dictionary.end())
        return {};
    return found->second.floatValue();
}

} // namespace

Value::Data archivedColour(Colour& colour)
{
    if (!colour.kelvin)
        colour.kelvin = kDefaultKelvin;
    return keyedArchiveOf({
        {"hue", static_cast<double>(colour.hue)},
        {"saturation", static_cast<double>(colour.saturation)},
        {"brightness", static_cast<double>(colour.brightness)},
        {"kelvin", *colour.kelvin},
    });
}

std::optional<Colour> colourUsingArchivedColour(std::span<const std::uint8_t> data, Log& log)
{
    if (data.empty()) {
        log.line("unable to make colour with nil archive");
        return {};
    }
    const auto dictionary = dictionaryFromKeyedArchive(data).value_or(Value::Dictionary());
    const auto hue = component(dictionary, "hue");
    const auto saturation = component(dictionary, "saturation");
    const auto brightness = component(dictionary, "brightness");
    if (!hue || !saturation || !brightness) {
        log.line("unable to make colour using archived colour: {}",
            description(Value::Data(data.begin(), data.end())));
        return Colour{1, 1, 1, 1, {}};
    }
    const auto kelvin = dictionary.find("kelvin");
    return Colour{*hue, *saturation, *brightness, 1,
        kelvin == dictionary.end() ? kDefaultKelvin
                                   : static_cast<int>(kelvin->second.integerValue())};
}

} // namespace lumeroom
