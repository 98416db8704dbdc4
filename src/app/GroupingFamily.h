#pragma once

#include "engine/EngineRoom.h"
#include "strips/StripTarget.h"

namespace lumeroom {

/// What sets groups, locations and tags apart from one another in the workflows.
struct GroupingFamily {
    StripType type; ///< of its strips
    std::string_view noun;

    // Texts that end in the name of the group, location or tag
    std::string_view editDescription; ///< beside the panel
    std::string_view deleteText;
    std::string_view notFound; ///< in the log, with a ":" behind the name

    std::string_view makeDescription;
    // In the popovers
    std::string_view makeTitle;
    std::string_view editTitle;
    std::string_view makeConfirm;
    std::string_view afterTheLastLamp; ///< what becomes of one whose lamps were all taken out

    void (*make)(EngineRoom& engine, const LampReferences& lamps, const std::string& name);
    void (*edit)(EngineRoom& engine, std::string_view id, const LampReferences& lamps);
    void (*remove)(EngineRoom& engine, std::string_view id);

    /// What the lamp has to leave to come into another one; null for none.
    const Grouping* (*heldBy)(const Lamp& lamp);
    /// The ID of the first with this name; nothing if there is none.
    std::optional<std::string> (*idForName)(const LampRegistry& registry, std::string_view name);
};

/// For one of the three types.
const GroupingFamily& groupingFamily(StripType type);

/// The ID of the one that was made last with this name; nothing if there is none.
std::optional<std::string> newestNamed(
    StripType type, const LampRegistry& registry, std::string_view name);

} // namespace lumeroom
