#pragma once

#include <functional>
#include <string>

namespace lumeroom {

/// What a workflow says of itself: to be looked at anew after each lamp picked and each letter.
struct WorkflowState {
    bool canConfirm = false;
    std::string summary; ///< "2 lamps, 1 moved from Study"; a further sentence on its own line

    bool operator==(const WorkflowState&) const = default;
};

/// A popover under the strips in which a group, location or tag is made or edited. It closes only
/// through its two buttons.
struct WorkflowPopover {
    static constexpr int kCancelTag = 0;
    static constexpr int kConfirmTag = 1;

    std::string title;
    std::string name; ///< of what is edited
    bool asksForName = false; ///< in a field; else the name just shows
    std::string confirm; ///< the title of the second button; the first is "Cancel"
    bool endsWithTheView = false; ///< dropped when the panel goes back by itself
    std::function<WorkflowState(const std::string& name)> state;
    /// A button was pressed; with its tag and the name.
    std::function<void(int tag, const std::string& name)> close;
};

} // namespace lumeroom
