#pragma once

#include <functional>
#include <string>
#include <vector>

namespace lumeroom {

/// What stands in the middle of a panel that has no rows to show: why, and what to do.
struct PanelNotice {
    struct Action {
        std::string title;
        std::function<void()> act;
    };

    std::string title;
    std::string text; ///< in paragraphs, each on a line
    std::vector<Action> actions;
};

} // namespace lumeroom
