#pragma once

#include "base/RunLoop.h"

#include <cstdint>
#include <string>

namespace lumeroom {

/// Whole seconds since 1970 times 1,000,000,000: the last nine digits are always zero.
std::int64_t nanosecondsSinceEpoch(TimePoint time);

/// Local time as "%Y%m%d%H%M%S".
std::string timestampText(TimePoint time);

} // namespace lumeroom
