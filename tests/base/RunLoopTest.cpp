#include "base/LocalTime.h"
#include "base/Log.h"
#include "base/ManualRunLoop.h"
#include "base/Pacer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

namespace lumeroom {

TEST(ManualRunLoop, runsTimersInOrderAndPostedWorkBetween)
{
    ManualRunLoop loop;
    std::string order;
    const Timer second = loop.after(Seconds(2), [&] { order += "2"; });
    const Timer first = loop.after(Seconds(1), [&] {
        order += "1";
        loop.post([&] { order += "p"; });
    });
    {
        const Timer dropped = loop.after(Seconds(1.5), [&] { order += "x"; });
        EXPECT_TRUE(dropped.isPending());
    }
    loop.advance(Seconds(1.9));
    EXPECT_EQ(order, "1p");
    EXPECT_FALSE(first.isPending());
    loop.advance(Seconds(0.2));
    EXPECT_EQ(order, "1p2");
}

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

TEST(Pacer, aRunLoopKeepsThePaceByHand)
{
    ManualRunLoop loop;
    RunLoopPacer pacer(loop);
    int passes = 0;
    auto task = pacer.start("test",
        [&] { return Seconds(++passes < 4 ? 1.0 : std::numeric_limits<double>::infinity()); });
    loop.advance(Seconds(2.5));
    EXPECT_EQ(passes, 3);
    loop.advance(Seconds(100));
    EXPECT_EQ(passes, 4);
}

TEST(Log, guardsReadTheLevelEachTime)
{
    int level = 0;
    std::vector<std::string> lines;
    Log log([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_FALSE(log.shows(1));
    log.setVerbositySource([&] { return level; });
    EXPECT_TRUE(log.shows(0));
    EXPECT_FALSE(log.shows(1));
    level = 2;
    EXPECT_TRUE(log.shows(2));
    log.line("a {} b", 1);
    EXPECT_EQ(lines, std::vector<std::string>{"a 1 b"});
}

TEST(LocalTime, wholeSecondsInNanoseconds)
{
    const TimePoint time(std::chrono::milliseconds(1772452800999));
    EXPECT_EQ(nanosecondsSinceEpoch(time), 1772452800000000000);
    EXPECT_EQ(timestampText(time).size(), 14U);
}

} // namespace lumeroom
