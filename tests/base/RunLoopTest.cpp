#include "base/LocalTime.h"
#include "base/ManualRunLoop.h"
#include "base/Pacer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

namespace lumeroom {

TEST(ManualRunLoop, guardedWorkLapsesWithItsOwner)
{
    ManualRunLoop loop;
    int runs = 0;
    {
        const Lifeline owner;
        loop.post(owner.guard([&] { ++runs; }));
        loop.runPosted();
        loop.post(owner.guard([&] { ++runs; }));
    }
    loop.runPosted();
    EXPECT_EQ(runs, 1);
}

TEST(Pacer, aThreadEndsAtOnceWhateverItsPause)
{
    ThreadPacer pacer;
    for (const double pause : {0.0, 3600.0, std::numeric_limits<double>::infinity()}) {
        std::atomic<int> passes = 0;
        auto task = pacer.start("test", [&passes, pause] {
            ++passes;
            return Seconds(pause);
        });
        while (passes == 0)
            std::this_thread::yield();
        task.reset(); // returns, or the test hangs
        EXPECT_GE(passes, 1);
    }
}

TEST(LocalTime, wholeSecondsInNanoseconds)
{
    const TimePoint time(std::chrono::milliseconds(1772452800999));
    EXPECT_EQ(nanosecondsSinceEpoch(time), 1772452800000000000);
}

} // namespace lumeroom
