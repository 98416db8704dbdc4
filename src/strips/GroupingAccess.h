#pragma once

#include "engine/Records.h"
#include "strips/StripTarget.h"

#include <functional>

namespace lumeroom {

class LampRegistry;
class Summaries;

/// How the engine keeps and reaches one type of grouping: groups, locations or tags.
struct GroupingAccess {
    using Visit = std::function<void(const std::string& id, const std::string& label)>;

    StripType type;
    std::string_view name; ///< for the user
    /// All that are known, in order of arrival.
    void (*forEach)(const LampRegistry& registry, const Visit& visit);
    /// Of the one with this ID; nothing if there is none.
    std::optional<std::string> (*label)(const LampRegistry& registry, std::string_view id);
    Lamps (*lamps)(const LampRegistry& registry, std::string_view id);
    Settings (*summary)(const Summaries& summaries, std::string_view id);
    void (*sendSettings)(LampCommands& commands, const Settings& settings, std::string_view id);
    void (*turn)(LampCommands& commands, std::string_view id, bool on);
    void (*rename)(EngineRoom& engineRoom, std::string_view id, const std::string& name);
};

/// Groups, locations and tags.
const std::array<GroupingAccess, 3>& groupingAccesses();
/// Null for a type that is no grouping.
const GroupingAccess* groupingAccess(StripType type);

} // namespace lumeroom
