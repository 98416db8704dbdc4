#pragma once

#include "base/RunLoop.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

namespace lumeroom {

/// A run loop whose clock stands still until it is moved by hand.
class ManualRunLoop : public RunLoop {
public:
    /// The clock starts at noon UTC on 2026-03-02, a Monday, unless told otherwise.
    ManualRunLoop();
    explicit ManualRunLoop(TimePoint start)
        : m_now(start)
    {
    }

    void post(std::function<void()> work) override;
    TimePoint now() const override { return m_now; }

    /// Runs all posted work, and the work that it posts in turn.
    void runPosted();
    /// Moves the clock on, running timers in the order of their times and posted work between them.
    void advance(Seconds by);
    /// Waits in real time, at most `limit`, for another thread's work until `done` holds.
    /// Answers whether it does.
    bool runUntil(const std::function<bool()>& done, Seconds limit = Seconds(10));

protected:
    void schedule(Seconds delay, std::function<void()> work) override;

private:
    TimePoint m_now;
    std::multimap<TimePoint, std::function<void()>> m_timers;
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<std::function<void()>> m_work;
};

} // namespace lumeroom
