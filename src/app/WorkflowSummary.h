#pragma once

#include "app/WorkflowPopover.h"
#include "engine/Records.h"

namespace lumeroom {

struct GroupingFamily;
class LampRegistry;
struct StripTarget;

/// What making a group, location or tag of this name from these lamps would do.
WorkflowState stateOfMake(const GroupingFamily& family, const LampRegistry& registry,
    const Lamps& picked, const std::string& name);
/// What leaving just these lamps in the one that is edited, under this name, would do.
WorkflowState stateOfEdit(const StripTarget& edited, const LampRegistry& registry,
    const Lamps& picked, const std::string& name);

} // namespace lumeroom
