#pragma once

#include "app/WorkflowPanel.h"
#include "engine/EngineRoom.h"

namespace lumeroom {

/// What sets one kind of grouping apart from the others in the workflows.
struct GroupingFamily {
    StripType type; ///< of its strips

    // The member's name follows these
    std::string_view editDescription;
    std::string_view deleteText;
    std::string_view notFound; ///< in the log, with a ":" behind the name

    std::string_view makeDescription;
    // In the popovers
    std::string_view makeTitle;
    std::string_view editTitle;
    std::string_view makeConfirm;

    void (EngineRoom::*make)(const LampReferences& lamps, const std::string& name);
    void (EngineRoom::*edit)(std::string_view id, const LampReferences& lamps);
    void (EngineRoom::*remove)(std::string_view id);
    Lamps (EngineRoom::*lamps)(std::string_view id) const;

    /// The ID of the first with this name; nothing if there is none.
    std::optional<std::string> (*idForName)(const EngineRoom& engine, std::string_view name);
    std::vector<std::string> (*names)(const EngineRoom& engine);
};

const GroupingFamily& groupingFamily(GroupingKind kind);

} // namespace lumeroom
