#pragma once

#include <string_view>

namespace lumeroom {

/// "orange". Takes degrees, 0 to 360.
std::string_view hueName(float degrees);

} // namespace lumeroom
