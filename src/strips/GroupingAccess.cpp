#include "strips/GroupingAccess.h"

#include "engine/EngineRoom.h"

#include <algorithm>

namespace lumeroom {

namespace {

/// An operation as a plain function that takes its object first.
template <auto kOperation> struct Plainly;

template <typename Class, typename Result, typename... Arguments,
    Result (Class::*kOperation)(Arguments...)>
struct Plainly<kOperation> {
    static Result call(Class& object, Arguments... arguments)
    {
        return (object.*kOperation)(arguments...);
    }
};

template <typename Class, typename Result, typename... Arguments,
    Result (Class::*kOperation)(Arguments...) const>
struct Plainly<kOperation> {
    static Result call(const Class& object, Arguments... arguments)
    {
        return (object.*kOperation)(arguments...);
    }
};

template <typename Records>
void visitAll(const Records& records, const GroupingAccess::Visit& visit)
{
    for (const auto& record : records)
        visit(record->id, record->label);
}

template <typename Record> std::optional<std::string> labelOf(const Record& record)
{
    return record ? std::optional(record->label) : std::nullopt;
}

constexpr std::array<GroupingAccess, 3> kAccesses{{
    {
        .type = StripType::Group,
        .name = "Group",
        .forEach
        = [](const LampRegistry& registry,
              const GroupingAccess::Visit& visit) { visitAll(registry.groupsArray(), visit); },
        .label = [](const LampRegistry& registry,
                     std::string_view id) { return labelOf(registry.groupWithID(id)); },
        .lamps = Plainly<&LampRegistry::lightsArrayForGroup>::call,
        .summary = Plainly<&Summaries::settingsForGroup>::call,
        .sendSettings = Plainly<&LampCommands::sendSettingsToGroup>::call,
        .turn = Plainly<&LampCommands::groupOn>::call,
        .rename
        = [](EngineRoom& engineRoom, std::string_view id,
              const std::string& name) { engineRoom.groupings().renameGroupNewName(id, name); },
    },
    {
        .type = StripType::Location,
        .name = "Location",
        .forEach
        = [](const LampRegistry& registry,
              const GroupingAccess::Visit& visit) { visitAll(registry.locationssArray(), visit); },
        .label = [](const LampRegistry& registry,
                     std::string_view id) { return labelOf(registry.locationWithID(id)); },
        .lamps = Plainly<&LampRegistry::lightsArrayForLocation>::call,
        .summary = Plainly<&Summaries::settingsForLocation>::call,
        .sendSettings = Plainly<&LampCommands::sendSettingsToLocation>::call,
        .turn = Plainly<&LampCommands::locationOn>::call,
        .rename
        = [](EngineRoom& engineRoom, std::string_view id,
              const std::string& name) { engineRoom.groupings().renameLocationNewName(id, name); },
    },
    {
        .type = StripType::Tag,
        .name = "Tag",
        .forEach
        = [](const LampRegistry& registry,
              const GroupingAccess::Visit& visit) { visitAll(registry.tagsArray(), visit); },
        .label = [](const LampRegistry& registry,
                     std::string_view id) { return labelOf(registry.tagNamed(id)); },
        .lamps = Plainly<&LampRegistry::lightsArrayForTag>::call,
        .summary = Plainly<&Summaries::settingsForTag>::call,
        .sendSettings = Plainly<&LampCommands::sendSettingsToTag>::call,
        .turn = Plainly<&LampCommands::tagOn>::call,
        .rename = [](EngineRoom&, std::string_view, const std::string&) {}, // tags keep their names
    },
}};

} // namespace

const std::array<GroupingAccess, 3>& groupingAccesses()
{
    return kAccesses;
}

const GroupingAccess* groupingAccess(StripType type)
{
    const auto* found = std::find_if(kAccesses.begin(), kAccesses.end(),
        [type](const GroupingAccess& access) { return access.type == type; });
    return found == kAccesses.end() ? nullptr : found;
}

} // namespace lumeroom
