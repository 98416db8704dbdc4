#include "app/GroupingFamily.h"

#include "strips/GroupingAccess.h"

#include <algorithm>
#include <array>

namespace lumeroom {

namespace {

/// An operation of one of the engine's parts.
template <auto kPart, auto kOperation, typename... Arguments>
void perform(EngineRoom& engine, Arguments... arguments)
{
    ((engine.*kPart)().*kOperation)(arguments...);
}

constexpr std::array<GroupingFamily, 3> kFamilies{{
    {
        .type = StripType::Group,
        .noun = "group",
        .editDescription = "Editing lights in group: ",
        .deleteText = "Are you sure you want to delete the group: ",
        .notFound = "Unable to find ID for group ",
        .makeDescription = "Making new group",
        .makeTitle = "New group",
        .editTitle = "Group",
        .makeConfirm = "Make Group",
        .afterTheLastLamp = "stays until Lumeroom ends",
        .make = perform<&EngineRoom::groupings, &GroupingCommands::makeGroupNamed>,
        .edit = perform<&EngineRoom::groupings, &GroupingCommands::editGroupLamps>,
        .remove = perform<&EngineRoom::groupings, &GroupingCommands::removeGroupWithID>,
        .heldBy = [](const Lamp& lamp) -> const Grouping* { return lamp.group.get(); },
        .idForName = [](const LampRegistry& registry,
                         std::string_view name) { return registry.IDForGroupNamed(name); },
    },
    {
        .type = StripType::Location,
        .noun = "location",
        .editDescription = "Editing lights in location: ",
        .deleteText = "Are you sure you want to delete the location: ",
        .notFound = "Unable to find ID for location ",
        .makeDescription = "Making new location",
        .makeTitle = "New location",
        .editTitle = "Location",
        .makeConfirm = "Make Location",
        .afterTheLastLamp = "stays until Lumeroom ends",
        .make = perform<&EngineRoom::groupings, &GroupingCommands::makeLocationNamed>,
        .edit = perform<&EngineRoom::groupings, &GroupingCommands::editLocationLamps>,
        // A location is removed the way a group is. The engine knows no group of its ID, so the
        // lamps keep the location, and the user is told of a group.
        .remove = perform<&EngineRoom::groupings, &GroupingCommands::removeGroupWithID>,
        .heldBy = [](const Lamp& lamp) -> const Grouping* { return lamp.location.get(); },
        .idForName = [](const LampRegistry& registry,
                         std::string_view name) { return registry.IDForLocationNamed(name); },
    },
    {
        .type = StripType::Tag,
        .noun = "tag",
        .editDescription = "Editing lights tagged: ",
        .deleteText = "Are you sure you want to delete the tag: ",
        .notFound = {},
        .makeDescription = "Making new Tag",
        .makeTitle = "New tag",
        .editTitle = "Tag",
        .makeConfirm = "Make Tag",
        .afterTheLastLamp = "stays",
        .make = perform<&EngineRoom::tags, &TagCommands::makeTagNamed>,
        .edit = perform<&EngineRoom::tags, &TagCommands::editTagLamps>,
        .remove = perform<&EngineRoom::tags, &TagCommands::removeTag>,
        .heldBy = [](const Lamp&) -> const Grouping* { return nullptr; }, // it can have many
        .idForName = [](const LampRegistry&, std::string_view name) -> std::optional<std::string> {
            return std::string(name);
        }, // a tag is its name
    },
}};

} // namespace

const GroupingFamily& groupingFamily(StripType type)
{
    return *std::find_if(kFamilies.begin(), kFamilies.end(),
        [type](const GroupingFamily& family) { return family.type == type; });
}

std::optional<std::string> newestNamed(
    StripType type, const LampRegistry& registry, std::string_view name)
{
    std::optional<std::string> newest;
    groupingAccess(type)->forEach(registry, [&](const std::string& id, const std::string& label) {
        if (label == name)
            newest = id;
    });
    return newest;
}

} // namespace lumeroom
