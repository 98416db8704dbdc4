#pragma once

#include "strips/Controls.h"

namespace lumeroom {

/// The navigation beside the panel: five switches for the kinds of strips to show, and in their
/// place, while a filter is set, the way back with a description of what is shown.
struct NavigationModel {
    ButtonModel lights{0};
    ButtonModel groups{0};
    ButtonModel locations{0};
    ButtonModel tags{0};
    ButtonModel all{0};
    ButtonModel back{0, ButtonModel::Kind::Momentary};

    bool isFiltered = false;
    std::string description;
    /// The view's wish to be told of changes in the last two.
    std::function<void()> onChange;
};

/// What the navigation offers besides.
struct NavigationActions {
    std::function<void()> allOn;
    std::function<void()> allOff;
};

} // namespace lumeroom
