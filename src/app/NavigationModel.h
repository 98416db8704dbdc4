#pragma once

#include "base/Geometry.h"
#include "strips/Controls.h"
#include "strips/StripTarget.h"

#include <optional>

namespace lumeroom {

/// What the panel is narrowed down to: the lamps of a group, location or tag, or the zones of a
/// lamp. Type `None` with ID "0" means all lamps and nothing else.
struct NavigationFilter {
    StripType type = StripType::None;
    std::string id;
    std::string description; ///< for the user
};

/// The navigation beside the panel: five switches for the kinds of strips to show, and in their
/// place, while a filter is set, the way back with a description of what is shown.
struct NavigationModel {
    // The tool tip of a switch tells why it brings no row
    ButtonModel lights{0};
    ButtonModel groups{0};
    ButtonModel locations{0};
    ButtonModel tags{0};
    ButtonModel all{0};
    ButtonModel back{0, ButtonModel::Kind::Momentary};
    // Enabled while there is a group to choose
    ButtonModel editGroup{0, ButtonModel::Kind::Momentary};
    ButtonModel deleteGroup{0, ButtonModel::Kind::Momentary};

    /// Leaves this one of the five on alone.
    std::function<void(ButtonModel& kind)> showOnly;

    std::optional<NavigationFilter> filter;
    /// The view's wish to be told of a change of the filter.
    std::function<void()> onChange;
};

/// What the navigation offers besides.
struct NavigationActions {
    std::function<void()> allOn;
    std::function<void()> allOff;
    std::function<void()> makeGroup;
    // These pop a menu up at the button, whose frame they take in window coordinates
    std::function<void(const Rectangle& button)> editGroup;
    std::function<void(const Rectangle& button)> deleteGroup;
};

} // namespace lumeroom
