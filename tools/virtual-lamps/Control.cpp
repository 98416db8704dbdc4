#include "Control.h"

#include <fmt/core.h>

#include <optional>
#include <sstream>

namespace virtual_lamps {

namespace {

constexpr std::string_view kHelp
    = "state [LAMP] | set LAMP power on|off | set LAMP colour H S B K | set LAMP label TEXT | "
      "set LAMP zone N H S B K | silent LAMP on|off";

std::string colourAsJson(const Hsbk& colour)
{
    return fmt::format(R"({{"hue":{},"saturation":{},"brightness":{},"kelvin":{}}})", colour.hue,
        colour.saturation, colour.brightness, colour.kelvin);
}

std::string membershipAsJson(const Membership& membership)
{
    return fmt::format(R"({{"guid":"{}","label":{},"updated_at":{}}})", hexText(membership.guid),
        jsonText(membership.label), membership.updatedAt);
}

std::optional<std::size_t> lampNamed(LampNetwork& network, const std::string& name)
{
    for (std::size_t i = 0; i < network.count(); ++i) {
        bool found = name == std::to_string(i + 1);
        network.withLamp(i, [&](VirtualLamp& lamp, Time) { found = found || lamp.label == name; });
        if (found)
            return i;
    }
    return {};
}

/// A word, or several in double quotes.
std::string nextWord(std::istringstream& words)
{
    std::string word;
    words >> std::ws;
    if (words.peek() == '"') {
        words.get();
        std::getline(words, word, '"');
    } else {
        words >> word;
    }
    return word;
}

std::optional<Hsbk> readColour(std::istringstream& words)
{
    Hsbk colour;
    words >> colour.hue >> colour.saturation >> colour.brightness >> colour.kelvin;
    return words ? std::optional(colour) : std::nullopt;
}

std::string setLamp(LampNetwork& network, std::size_t index, std::istringstream& words)
{
    const std::string property = nextWord(words);
    std::string result = "ok";
    network.withLamp(index, [&](VirtualLamp& lamp, Time now) {
        if (property == "power") {
            lamp.setPower(nextWord(words) == "on", now);
        } else if (property == "label") {
            std::getline(words >> std::ws, lamp.label);
        } else if (property == "colour") {
            if (const auto colour = readColour(words))
                lamp.setColour(*colour, now);
            else
                result = "error: a colour is four numbers";
        } else if (property == "zone") {
            std::size_t zone = 0;
            words >> zone;
            const auto colour = readColour(words);
            if (colour && zone < lamp.zoneCount())
                lamp.setZone(zone, *colour, now);
            else
                result = "error: no such zone, or no colour";
        } else {
            result = "error: unknown property '" + property + "'";
        }
    });
    return result;
}

} // namespace

std::string stateAsJson(LampNetwork& network, std::size_t index)
{
    std::string json;
    network.withLamp(index, [&](VirtualLamp& lamp, Time now) {
        std::string labels;
        for (const auto& [tag, text] : lamp.tagLabels)
            labels += fmt::format("{}\"{}\":{}", labels.empty() ? "" : ",", tag, jsonText(text));
        std::string zones;
        for (std::size_t i = 0; i < lamp.zoneCount(); ++i)
            zones += (i == 0 ? "" : ",") + colourAsJson(lamp.zone(i, now));
        json = fmt::format(
            R"({{"id":"{}","address":"{}","label":{},"product":{},"power":{},"colour":{},"group":{},"location":{},"tags":{},"tagLabels":{{{}}},"zones":[{}]}})",
            hexText(lamp.mac()), network.address(index), jsonText(lamp.label), lamp.product().id,
            lamp.power(now), colourAsJson(lamp.colour(now)), membershipAsJson(lamp.group),
            membershipAsJson(lamp.location), lamp.tags, labels, zones);
    });
    return json;
}

std::string runCommand(LampNetwork& network, const std::string& line)
{
    std::istringstream words(line);
    const std::string verb = nextWord(words);
    if (verb == "help" || verb.empty())
        return std::string(kHelp);
    const std::string name = nextWord(words);
    if (verb == "state" && name.empty()) {
        std::string all;
        for (std::size_t i = 0; i < network.count(); ++i)
            all += (i == 0 ? "" : "\n") + stateAsJson(network, i);
        return all;
    }
    const auto index = lampNamed(network, name);
    if (!index)
        return "error: no lamp '" + name + "'";
    if (verb == "state")
        return stateAsJson(network, *index);
    if (verb == "set")
        return setLamp(network, *index, words);
    if (verb == "silent") {
        network.setSilent(*index, nextWord(words) == "on");
        return "ok";
    }
    return "error: unknown command '" + verb + "'";
}

} // namespace virtual_lamps
