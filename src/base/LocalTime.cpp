#include "base/LocalTime.h"

#include <fmt/core.h>

#include <ctime>

namespace lumeroom {

std::int64_t nanosecondsSinceEpoch(TimePoint time)
{
    constexpr std::int64_t kPerSecond = 1'000'000'000;
    return std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count() * kPerSecond;
}

std::string timestampText(TimePoint time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}", local.tm_year + 1900, local.tm_mon + 1,
        local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

} // namespace lumeroom
