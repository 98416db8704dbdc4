#include "app/LampChange.h"

#include "engine/LampCommands.h"
#include "engine/LampRegistry.h"
#include "engine/LampUnits.h"

#include <fmt/core.h>

#include <cmath>

namespace lumeroom {

namespace {

/// What a lamp may lose between being sent a value and reporting it, in 255ths of the range.
constexpr double kLoss = 2;

struct Member {
    std::optional<double> LampColour::*value;
    double range;
};

constexpr Member kMembers[] = {
    {&LampColour::colour, kMostColour},
    {&LampColour::saturation, kMostLevel},
    {&LampColour::brightness, kMostLevel},
    {&LampColour::warmth, kMostWarmth},
};

bool isStill(const Member& member, const std::optional<double>& left, const LampColour& present)
{
    const auto& value = present.*member.value;
    return left && value && std::abs(*left - *value) <= kLoss / kMostLevel * member.range;
}

void dropSame(LampColour& before, LampColour& after)
{
    for (const Member& member : kMembers) {
        auto& was = before.*member.value;
        auto& is = after.*member.value;
        if (was && is && integerPart(*was) != integerPart(*is))
            continue;
        was.reset();
        is.reset();
    }
}

/// `before` may be as it was, or as it has to be sent: a lamp that was told what it had is the
/// same.
void keepWhatChanged(LampColour& before, LampColour& after)
{
    dropSame(before, after);
    before = sentWhenReported(before);
    dropSame(before, after);
}

void extendColour(LampColour& before, LampColour& after, const LampColour& nextBefore,
    const LampColour& nextAfter)
{
    after.adopt(nextAfter);
    LampColour first = nextBefore;
    first.adopt(before);
    before = first;
}

/// Whether there was something to send.
bool send(const LampColour& wanted, const LampColour& left, const LampColour& present,
    const std::string& id, LampCommands& commands)
{
    Settings settings;
    for (const Member& member : kMembers) {
        if (isStill(member, left.*member.value, present))
            settings.*member.value = wanted.*member.value;
    }
    if (!settings.hasAny())
        return false;
    commands.sendSettingsToLamp(settings, id);
    return true;
}

bool restoreLamp(
    const LampState& wanted, const LampState& left, const Lamp& lamp, LampCommands& commands)
{
    const LampState present(lamp);
    const std::string id = lamp.id;
    const bool turns = wanted.power && present.power == left.power;
    if (turns)
        commands.lampOn(id, *wanted.power);
    bool restored = send(wanted.colour, left.colour, present.colour, id, commands) || turns;
    for (const auto& [number, colour] : wanted.zones) {
        const auto zone = present.zones.find(number);
        if (zone != present.zones.end()
            && send(colour, left.zones.at(number), zone->second, fmt::format("{}-{}", id, number),
                commands))
            restored = true;
    }
    return restored;
}

} // namespace

LampState::LampState(const Lamp& lamp)
    : power(lamp.expectedPower())
{
    for (const Zone& zone : lamp.ownZones())
        zones.emplace(zone.zone, zone.expectedColour());
    if (!lamp.zones)
        colour = lamp;
}

LampChange::States LampChange::statesOf(const Lamps& lamps)
{
    States states;
    for (const auto& lamp : lamps)
        states.emplace(lamp->id, LampState(*lamp));
    return states;
}

LampChange::LampChange(const States& before, const States& after)
{
    for (const auto& [id, was] : before) {
        const auto is = after.find(id);
        if (is == after.end())
            continue;
        Sides lamp{was, is->second};
        keepWhatChanged(lamp.before.colour, lamp.after.colour);
        for (auto& [number, colour] : lamp.before.zones)
            keepWhatChanged(colour, lamp.after.zones[number]);
        dropUnchanged(lamp);
        if (!lamp.before.isEmpty())
            m_lamps.emplace(id, lamp);
    }
}

void LampChange::dropUnchanged(Sides& lamp)
{
    if (!lamp.before.power || !lamp.after.power || lamp.before.power == lamp.after.power)
        lamp.before.power = lamp.after.power = {};
    dropSame(lamp.before.colour, lamp.after.colour);
    for (auto& [number, colour] : lamp.before.zones)
        dropSame(colour, lamp.after.zones[number]);
    const auto isUntouched = [](const auto& zone) { return !zone.second.hasAny(); };
    std::erase_if(lamp.before.zones, isUntouched);
    std::erase_if(lamp.after.zones,
        [&](const auto& zone) { return !lamp.before.zones.contains(zone.first); });
}

void LampChange::extend(const LampChange& next)
{
    for (const auto& [id, more] : next.m_lamps) {
        Sides& lamp = m_lamps[id];
        if (!lamp.before.power)
            lamp.before.power = more.before.power;
        if (more.after.power)
            lamp.after.power = more.after.power;
        extendColour(lamp.before.colour, lamp.after.colour, more.before.colour, more.after.colour);
        for (const auto& [number, colour] : more.before.zones)
            extendColour(lamp.before.zones[number], lamp.after.zones[number], colour,
                more.after.zones.at(number));
        dropUnchanged(lamp);
    }
    std::erase_if(m_lamps, [](const auto& lamp) { return lamp.second.before.isEmpty(); });
}

bool LampChange::takeBack(const LampRegistry& registry, LampCommands& commands) const
{
    return restore(&Sides::before, &Sides::after, registry, commands);
}

bool LampChange::makeAgain(const LampRegistry& registry, LampCommands& commands) const
{
    return restore(&Sides::after, &Sides::before, registry, commands);
}

bool LampChange::restore(
    Side wanted, Side left, const LampRegistry& registry, LampCommands& commands) const
{
    bool restored = false;
    for (const auto& [id, sides] : m_lamps) {
        const auto lamp = registry.lampWithID(id);
        if (lamp && restoreLamp(sides.*wanted, sides.*left, *lamp, commands))
            restored = true;
    }
    return restored;
}

} // namespace lumeroom
