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
        .make = &EngineRoom::makeGroupNamed,
        .edit = &EngineRoom::editGroupLamps,
        .remove = &EngineRoom::removeGroupWithID,
        .lamps = &EngineRoom::lightsArrayForGroup,
        .idForName = [](const EngineRoom& engine,
                         std::string_view name) { return engine.IDForGroupNamed(name); },
        .names = [](const EngineRoom& engine) { return labels(engine.groupsArray()); },
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
        .make = &EngineRoom::makeLocationNamed,
        .edit = &EngineRoom::editLocationLamps,
        // A location is removed the way a group is. The engine knows no group of its ID, so the
        // lamps keep the location, and the user is told of a group.
        .remove = &EngineRoom::removeGroupWithID,
        .lamps = &EngineRoom::lightsArrayForLocation,
        .idForName = [](const EngineRoom& engine,
                         std::string_view name) { return engine.IDForLocationNamed(name); },
        .names = [](const EngineRoom& engine) { return labels(engine.locationssArray()); },
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
        .make = &EngineRoom::makeTagNamed,
        .edit = &EngineRoom::editTagLamps,
        .remove = &EngineRoom::removeTag,
        .lamps = &EngineRoom::lightsArrayForTag,
        .idForName = [](const EngineRoom&, std::string_view name) -> std::optional<std::string> {
            return std::string(name);
        }, // a tag is its name
        .names = [](const EngineRoom& engine) { return labels(engine.tagsArray()); },
    },
}};

} // namespace

const GroupingFamily& groupingFamily(GroupingKind kind)
{
    return kFamilies.at(static_cast<std::size_t>(kind));
}

} // namespace lumeroom
