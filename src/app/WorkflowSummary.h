#pragma once

#include "app/WorkflowPopover.h"
#include "engine/Records.h"

namespace lumeroom {

struct GroupingFamily;
class LampRegistry;

/// What making a group, location or tag of this name from these lamps would do.
WorkflowState stateOfMake(const GroupingFamily& family, const LampRegistry& registry,
    const Lamps& picked, const std::string& name);
/// What leaving just these lamps in the one with this ID would do.
WorkflowState stateOfEdit(const GroupingFamily& family, const LampRegistry& registry,
    std::string_view id, const Lamps& picked);

} // namespace lumeroom
