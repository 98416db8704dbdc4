#include "base/CallSoon.h"
#include "base/Listeners.h"
#include "base/Pacer.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

namespace lumeroom {

TEST(CallSoon, doesOnceWhatIsAskedForOftenAndLapsesWithItsOwner)
{
    ManualRunLoop loop;
    int runs = 0;
    std::unique_ptr<CallSoon> soon;
    std::function<void()> after = [&] { soon->request(); }; // what is news during the work
    soon = std::make_unique<CallSoon>(
        loop, [&] { ++runs, std::exchange(after, [] {})(); }, Seconds(0.5));
    soon->request();
    std::thread([&] { soon->request(); }).join();
    loop.advance(Seconds(0.4));
    soon->request(); // the first one counts
    EXPECT_EQ(runs, 0);
    loop.advance(Seconds(0.2));
    EXPECT_EQ(runs, 1);
    loop.advance(Seconds(9));
    EXPECT_EQ(runs, 2);

    soon->request();
    after = [&] { soon.reset(); };
    loop.advance(Seconds(9));
    EXPECT_EQ(runs, 3);
    CallSoon(loop, [&] { ++runs; }).request();
    loop.runPosted();
    EXPECT_EQ(runs, 3);
}

TEST(Listeners, mayComeAndGoWhileTheyAreTold)
{
    Listeners listeners;
    std::string told;
    Subscription second;
    Subscription third;
    const Subscription first = listeners.add([&] {
        told += "1";
        second = {};
        if (!third)
            third = listeners.add([&] { told += "3"; });
    });
    second = listeners.add([&] { told += "2"; });
    listeners.tell();
    listeners.tell();
    EXPECT_EQ(told, "113");
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
    }
}

} // namespace lumeroom
