#include "base/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace lumeroom {

TEST(LocalTime, aMomentIsToldByItsDay)
{
    setenv("TZ", "EST5", 1); // five hours behind
    tzset();
    using namespace std::chrono;
    const TimePoint midnight = sys_days(year(2027) / 1 / 2) + hours(5);
    const struct {
        minutes before;
        const char* words;
    } moments[] = {{minutes(-5), "at 00:05"}, {minutes(1), "yesterday at 23:59"},
        {hours(24), "yesterday at 00:00"},
        {hours(24) + minutes(1), "on 31 December 2026 at 23:59"}};
    for (const auto& [before, words] : moments)
        EXPECT_EQ(momentText(midnight - before, midnight + hours(1)), words);
    EXPECT_EQ(momentText(midnight, midnight + days(60)), "on 2 January at 00:00");
}

} // namespace lumeroom
