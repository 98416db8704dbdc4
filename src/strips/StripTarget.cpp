#include "strips/StripTarget.h"

#include "engine/EngineRoom.h"

namespace lumeroom {

bool StripTarget::isGroup() const
{
    return type == StripType::Group || type == StripType::Location || type == StripType::Tag;
}

void StripTarget::sendSettingsToGroup(EngineRoom& engineRoom, const Settings& settings) const
{
    if (type == StripType::Group)
        engineRoom.sendSettingsToGroup(settings, id);
    else if (type == StripType::Location)
        engineRoom.sendSettingsToLocation(settings, id);
    else if (type == StripType::Tag)
        engineRoom.sendSettingsToTag(settings, id);
}

void StripTarget::groupOn(EngineRoom& engineRoom, bool on) const
{
    if (id == kAllLampsId)
        engineRoom.allOn(on);
    else if (type == StripType::Group)
        engineRoom.groupOn(id, on);
    else if (type == StripType::Location)
        engineRoom.locationOn(id, on);
    else if (type == StripType::Tag)
        engineRoom.tagOn(id, on);
}

void StripTarget::sendSettings(EngineRoom& engineRoom, const Settings& settings) const
{
    if (isGroup())
        sendSettingsToGroup(engineRoom, settings);
    else
        engineRoom.sendSettingsToLamp(settings, id);
}

void StripTarget::rename(EngineRoom& engineRoom, const std::string& name) const
{
    if (type == StripType::Group)
        engineRoom.renameGroupNewName(id, name);
    else if (type == StripType::Location)
        engineRoom.renameLocationNewName(id, name);
    else if (!isGroup())
        engineRoom.renameLampNewName(id, name);
}

} // namespace lumeroom
