#include "base/LocalTime.h"

#include <fmt/core.h>

#include <array>
#include <ctime>
#include <string_view>

namespace lumeroom {

std::int64_t nanosecondsSinceEpoch(TimePoint time)
{
    constexpr std::int64_t kPerSecond = 1'000'000'000;
    return std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count() * kPerSecond;
}

namespace {

constexpr std::array<std::string_view, 12> kMonths{"January", "February", "March", "April", "May",
    "June", "July", "August", "September", "October", "November", "December"};

std::tm localTime(TimePoint time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

std::chrono::year_month_day dayOf(const std::tm& local)
{
    return std::chrono::year(local.tm_year + 1900)
        / std::chrono::month(static_cast<unsigned>(local.tm_mon + 1))
        / std::chrono::day(static_cast<unsigned>(local.tm_mday));
}

} // namespace

std::string momentText(TimePoint time, TimePoint now)
{
    const std::tm local = localTime(time);
    std::string clock = fmt::format("at {:02}:{:02}", local.tm_hour, local.tm_min);
    const auto day = dayOf(local);
    const auto today = dayOf(localTime(now));
    if (day == today)
        return clock;
    if (std::chrono::sys_days(day) + std::chrono::days(1) == std::chrono::sys_days(today))
        return "yesterday " + clock;
    const std::string date
        = fmt::format("on {} {}", local.tm_mday, kMonths[static_cast<std::size_t>(local.tm_mon)]);
    return day.year() == today.year() ? fmt::format("{} {}", date, clock)
                                      : fmt::format("{} {} {}", date, int(day.year()), clock);
}

std::string timestampText(TimePoint time)
{
    const std::tm local = localTime(time);
    return fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}", local.tm_year + 1900, local.tm_mon + 1,
        local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

} // namespace lumeroom
