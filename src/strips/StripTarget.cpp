#include "strips/StripTarget.h"

#include "engine/EngineRoom.h"
#include "strips/GroupingAccess.h"

#include <utility>

namespace lumeroom {

bool StripTarget::isGroup() const
{
    return groupingAccess(type) != nullptr;
}

bool StripTarget::isKnown(const LampRegistry& registry) const
{
    if (const auto* access = groupingAccess(type))
        return id == kAllLampsId || access->label(registry, id);
    return registry.lampWithID(lampID()) != nullptr;
}

std::string_view StripTarget::lampID() const
{
    const std::string_view whole = id;
    return type == StripType::Zone ? whole.substr(0, whole.rfind('-')) : whole;
}

Lamps StripTarget::lamps(const LampRegistry& registry) const
{
    if (const auto* access = groupingAccess(type))
        return access->lamps(registry, id);
    auto lamp = registry.lampWithID(lampID());
    return lamp ? Lamps{std::move(lamp)} : Lamps{};
}

void StripTarget::sendSettingsToGroup(LampCommands& commands, const Settings& settings) const
{
    if (const auto* access = groupingAccess(type))
        access->sendSettings(commands, settings, id);
}

void StripTarget::groupOn(LampCommands& commands, bool on) const
{
    if (id == kAllLampsId)
        commands.allOn(on);
    else if (const auto* access = groupingAccess(type))
        access->turn(commands, id, on);
}

void StripTarget::sendSettings(LampCommands& commands, const Settings& settings) const
{
    if (isGroup())
        sendSettingsToGroup(commands, settings);
    else
        commands.sendSettingsToLamp(settings, id);
}

void StripTarget::rename(EngineRoom& engineRoom, const std::string& name) const
{
    if (const auto* access = groupingAccess(type))
        access->rename(engineRoom, id, name);
    else
        engineRoom.commands().renameLampNewName(id, name);
}

} // namespace lumeroom
