#include "app/WorkflowSummary.h"

#include "app/GroupingFamily.h"
#include "base/NameText.h"
#include "strips/GroupingAccess.h"

#include <fmt/core.h>

#include <algorithm>
#include <set>

namespace lumeroom {

namespace {

std::string lampsText(std::size_t count)
{
    return fmt::format("{} {}", count, count == 1 ? "lamp" : "lamps");
}

/// ", 1 moved from Study": a lamp has one group and one location, which it leaves for another.
std::string movedText(const GroupingFamily& family, const Lamps& picked, std::string_view into)
{
    std::size_t moved = 0;
    std::set<std::string_view> from;
    std::string name;
    for (const auto& lamp : picked) {
        const Grouping* present = family.heldBy(*lamp);
        if (!present || present->id == into)
            continue;
        ++moved;
        from.insert(present->id);
        name = nameOnOneLine(present->label);
    }
    if (moved == 0)
        return {};
    if (from.size() > 1)
        name = fmt::format("other {}s", family.noun);
    else if (isBlankName(name))
        name = fmt::format("another {}", family.noun);
    return fmt::format(", {} moved from {}", moved, name);
}

std::string leavingText(const Lamps& members, const Lamps& picked)
{
    const std::set<std::shared_ptr<Lamp>> staying(picked.begin(), picked.end());
    const auto leaving = std::count_if(
        members.begin(), members.end(), [&](const auto& lamp) { return !staying.contains(lamp); });
    if (leaving == 0)
        return {};
    return fmt::format(", {} {}", leaving, leaving == 1 ? "leaves" : "leave");
}

bool isTaken(const GroupingFamily& family, const LampRegistry& registry, const std::string& name)
{
    bool taken = false;
    groupingAccess(family.type)
        ->forEach(registry,
            [&](const std::string&, const std::string& label) { taken = taken || label == name; });
    return taken;
}

} // namespace

WorkflowState stateOfMake(const GroupingFamily& family, const LampRegistry& registry,
    const Lamps& picked, const std::string& name)
{
    const bool isName = !isBlankName(name) && nameOnOneLine(name) == name;
    WorkflowState state{isName && !picked.empty(), "Pick the lamps"};
    if (!picked.empty())
        state.summary = lampsText(picked.size()) + movedText(family, picked, {});
    if (isName && isTaken(family, registry, name))
        state.summary += fmt::format("\nA {} called {} is there already", family.noun, name);
    return state;
}

WorkflowState stateOfEdit(const GroupingFamily& family, const LampRegistry& registry,
    std::string_view id, const Lamps& picked)
{
    if (picked.empty())
        return {true, fmt::format("No lamps: the {} {}", family.noun, family.afterTheLastLamp)};
    const Lamps members = groupingAccess(family.type)->lamps(registry, id);
    return {true,
        lampsText(picked.size()) + movedText(family, picked, id) + leavingText(members, picked)};
}

} // namespace lumeroom
