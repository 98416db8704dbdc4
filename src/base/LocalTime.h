#pragma once

#include "base/RunLoop.h"

#include <cstdint>
#include <string>

namespace lumeroom {

/// Whole seconds since 1970 times 1,000,000,000: the last nine digits are always zero.
std::int64_t nanosecondsSinceEpoch(TimePoint time);

/// A moment of the past in local time: "at 14:05", "yesterday at 22:10" or, of an earlier day, "on
/// 19 November at 22:10", with the year if it is another one.
std::string momentText(TimePoint time, TimePoint now);

/// Local time as "%Y%m%d%H%M%S".
std::string timestampText(TimePoint time);

} // namespace lumeroom
