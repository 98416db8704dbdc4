#include "strips/StripTarget.h"

#include "engine/EngineRoom.h"

namespace lumeroom {

bool StripTarget::isGroup() const
{
    return type == StripType::Group || type == StripType::Location || type == StripType::Tag;
}

void StripTarget::sendSettingsToGroup(LampCommands& commands, const Settings& settings) const
{
    if (type == StripType::Group)
        commands.sendSettingsToGroup(settings, id);
    else if (type == StripType::Location)
        commands.sendSettingsToLocation(settings, id);
    else if (type == StripType::Tag)
        commands.sendSettingsToTag(settings, id);
}

void StripTarget::groupOn(LampCommands& commands, bool on) const
{
    if (id == kAllLampsId)
        commands.allOn(on);
    else if (type == StripType::Group)
        commands.groupOn(id, on);
    else if (type == StripType::Location)
        commands.locationOn(id, on);
    else if (type == StripType::Tag)
        commands.tagOn(id, on);
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
    if (type == StripType::Group)
        engineRoom.groupings().renameGroupNewName(id, name);
    else if (type == StripType::Location)
        engineRoom.groupings().renameLocationNewName(id, name);
    else if (!isGroup())
        engineRoom.commands().renameLampNewName(id, name);
}

} // namespace lumeroom
