#include "app/GroupingFamily.h"

#include <array>

namespace lumeroom {

namespace {

template <typename Records> std::vector<std::string> labels(const Records& records)
{
    std::vector<std::string> list;
    list.reserve(records.size());
    for (const auto& record : records)
        list.push_back(record->label);
    return list;
}

/// An operation of one of the engine's parts.
template <auto kPart, auto kOperation, typename... Arguments>
void perform(EngineRoom& engine, Arguments... arguments)
{
    ((engine.*kPart)().*kOperation)(arguments...);
}

constexpr std::array<GroupingFamily, 3> kFamilies{{
    {
        .type = StripType::Group,
        .editDescription = "Editing lights in group: ",
        .deleteText = "Are you sure you want to delete the group: ",
        .notFound = "Unable to find ID for group ",
        .makeDescription = "Making new group",
        .makeTitle = "Select the lamps for the new group and name it:",
        .editTitle = "Select the lamps of this group:",
        .makeConfirm = "Make Group",
        .make = perform<&EngineRoom::groupings, &GroupingCommands::makeGroupNamed>,
        .edit = perform<&EngineRoom::groupings, &GroupingCommands::editGroupLamps>,
        .remove = perform<&EngineRoom::groupings, &GroupingCommands::removeGroupWithID>,
        .lamps = &LampRegistry::lightsArrayForGroup,
        .idForName = [](const LampRegistry& registry,
                         std::string_view name) { return registry.IDForGroupNamed(name); },
        .names = [](const LampRegistry& registry) { return labels(registry.groupsArray()); },
    },
    {
        .type = StripType::Location,
        .editDescription = "Editing lights in location: ",
        .deleteText = "Are you sure you want to delete the location: ",
        .notFound = "Unable to find ID for location ",
        .makeDescription = "Making new location",
        .makeTitle = "Select the lamps for the new location and name it:",
        .editTitle = "Select the lamps of this location:",
        .makeConfirm = "Make Location",
        .make = perform<&EngineRoom::groupings, &GroupingCommands::makeLocationNamed>,
        .edit = perform<&EngineRoom::groupings, &GroupingCommands::editLocationLamps>,
        // A location is removed the way a group is. The engine knows no group of its ID, so the
        // lamps keep the location, and the user is told of a group.
        .remove = perform<&EngineRoom::groupings, &GroupingCommands::removeGroupWithID>,
        .lamps = &LampRegistry::lightsArrayForLocation,
        .idForName = [](const LampRegistry& registry,
                         std::string_view name) { return registry.IDForLocationNamed(name); },
        .names = [](const LampRegistry& registry) { return labels(registry.locationssArray()); },
    },
    {
        .type = StripType::Tag,
        .editDescription = "Editing lights tagged: ",
        .deleteText = "Are you sure you want to delete the tag: ",
        .notFound = {},
        .makeDescription = "Making new Tag",
        .makeTitle = "Select the lamps for the new tag and name it:",
        .editTitle = "Select the lamps with this tag:",
        .makeConfirm = "Make Tag",
        .make = perform<&EngineRoom::tags, &TagCommands::makeTagNamed>,
        .edit = perform<&EngineRoom::tags, &TagCommands::editTagLamps>,
        .remove = perform<&EngineRoom::tags, &TagCommands::removeTag>,
        .lamps = &LampRegistry::lightsArrayForTag,
        .idForName = [](const LampRegistry&, std::string_view name) -> std::optional<std::string> {
            return std::string(name);
        }, // a tag is its name
        .names = [](const LampRegistry& registry) { return labels(registry.tagsArray()); },
    },
}};

} // namespace

const GroupingFamily& groupingFamily(GroupingKind kind)
{
    return kFamilies.at(static_cast<std::size_t>(kind));
}

} // namespace lumeroom
