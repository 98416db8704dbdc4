#pragma once

#include "base/Pacer.h"

#include <cmath>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

namespace lumeroom {

/// A run loop whose clocks stand still until they are moved by hand.
class ManualRunLoop : public RunLoop {
public:
    void post(std::function<void()> work) override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_work.push_back(std::move(work));
        }
        m_posted.notify_one();
    }
    TimePoint now() const override { return m_wall + m_elapsed; }
    Seconds elapsed() const override { return m_elapsed; }

    /// Sets the wall clock, as a person or a time server does.
    void setNow(TimePoint now) { m_wall = now - m_elapsed; }
    /// Runs all posted work, and the work that it posts in turn.
    void runPosted()
    {
        while (const auto work = takePosted())
            work();
    }
    /// Moves the clocks on, running timers in the order of their times and posted work between
    /// them.
    void advance(Seconds by)
    {
        const auto end = m_elapsed + ticks(by);
        runPosted();
        while (!m_timers.empty() && m_timers.begin()->first <= end) {
            auto timer = m_timers.extract(m_timers.begin());
            m_elapsed = std::max(m_elapsed, timer.key());
            timer.mapped()();
            runPosted();
        }
        m_elapsed = end;
    }
    /// Waits in real time, at most `limit`, for another thread's work until `done` holds.
    /// Answers whether it does.
    bool runUntil(const std::function<bool()>& done, Seconds limit = Seconds(10))
    {
        using Clock = std::chrono::steady_clock;
        const auto deadline = Clock::now() + ticks(limit);
        for (;;) {
            runPosted();
            if (done())
                return true;
            if (Clock::now() >= deadline)
                return false;
            // done() may depend on something other than posted work, so look again before long.
            std::unique_lock lock(m_mutex);
            m_posted.wait_for(
                lock, std::chrono::milliseconds(5), [this] { return !m_work.empty(); });
        }
    }

protected:
    void schedule(Seconds delay, std::function<void()> work) override
    {
        m_timers.emplace(m_elapsed + ticks(std::max(delay, Seconds(0))), std::move(work));
    }

private:
    using Ticks = TimePoint::duration;

    static Ticks ticks(Seconds time) { return std::chrono::round<Ticks>(time); }

    std::function<void()> takePosted()
    {
        const std::lock_guard lock(m_mutex);
        if (m_work.empty())
            return {};
        auto work = std::move(m_work.front());
        m_work.pop_front();
        return work;
    }

    /// What the wall clock showed when this began: noon UTC on a Monday.
    TimePoint m_wall
        = std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + std::chrono::hours(12);
    Ticks m_elapsed{};
    std::multimap<Ticks, std::function<void()>> m_timers;
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<std::function<void()>> m_work;
};

/// Each task keeps its pace on a run loop: with `ManualRunLoop`, time moved by hand.
class RunLoopPacer : public Pacer {
public:
    explicit RunLoopPacer(RunLoop& runLoop)
        : m_runLoop(runLoop)
    {
    }
    std::unique_ptr<PacedTask> start(std::string, Pass pass) override
    {
        return std::make_unique<Task>(m_runLoop, std::move(pass));
    }

private:
    class Task : public PacedTask {
    public:
        Task(RunLoop& runLoop, Pass pass)
            : m_runLoop(runLoop)
            , m_pass(std::move(pass))
            , m_timer(m_runLoop.after(Seconds(0), [this] { runPass(); }))
        {
        }

    private:
        void runPass()
        {
            const Seconds pause = m_pass();
            if (std::isfinite(pause.count()))
                m_timer = m_runLoop.after(pause, [this] { runPass(); });
        }

        RunLoop& m_runLoop;
        Pass m_pass;
        Timer m_timer;
    };

    RunLoop& m_runLoop;
};

} // namespace lumeroom
