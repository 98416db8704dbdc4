#pragma once

#include "strips/StripTarget.h"

namespace lumeroom {

/// What the panel is narrowed down to: the lamps of a group, location or tag, or the zones of a
/// lamp. Type `None` with ID "0" means all lamps and nothing else.
struct NavigationFilter {
    StripType type = StripType::None;
    std::string id;
};

} // namespace lumeroom
