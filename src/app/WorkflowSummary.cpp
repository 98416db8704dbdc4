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

} // namespace

WorkflowState stateOfMake(const GroupingFamily& family, const LampRegistry& registry,
    const Lamps& picked, const std::string& name)
{
    const bool hasName = !isBlankName(name);
    WorkflowState state{hasName && !picked.empty(), "Pick the lamps"};
    if (!picked.empty())
        state.summary = lampsText(picked.size()) + movedText(family, picked, {});
    if (!hasName)
        state.summary += "\nGive it a name";
    else if (newestNamed(family.type, registry, nameOnOneLine(name)))
        state.summary += fmt::format("\nA {} called {} is there already", family.noun, name);
    return state;
}

WorkflowState stateOfEdit(const StripTarget& edited, const LampRegistry& registry,
    const Lamps& picked, const std::string& name)
{
    const GroupingFamily& family = groupingFamily(edited.type);
    const auto label = groupingAccess(edited.type)->label(registry, edited.id);
    if (!label)
        return {false, fmt::format("The {} is gone", family.noun)};
    if (family.idForName(registry, name) != edited.id) // by which it is found again
        return {false, fmt::format("The {} is called {} now", family.noun, nameOnOneLine(*label))};
    if (picked.empty())
        return {true, fmt::format("No lamps: the {} {}", family.noun, family.afterTheLastLamp)};
    return {true,
        lampsText(picked.size()) + movedText(family, picked, edited.id)
            + leavingText(edited.lamps(registry), picked)};
}

} // namespace lumeroom
