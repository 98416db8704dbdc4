#include "base/ManualRunLoop.h"

namespace lumeroom {

ManualRunLoop::ManualRunLoop()
    : m_now(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + std::chrono::hours(12))
{
}

void ManualRunLoop::post(std::function<void()> work)
{
    {
        const std::lock_guard lock(m_mutex);
        m_work.push_back(std::move(work));
    }
    m_posted.notify_one();
}

void ManualRunLoop::runPosted()
{
    for (;;) {
        std::function<void()> work;
        {
            const std::lock_guard lock(m_mutex);
            if (m_work.empty())
                return;
            work = std::move(m_work.front());
            m_work.pop_front();
        }
        work();
    }
}

void ManualRunLoop::advance(Seconds by)
{
    const TimePoint end = m_now + std::chrono::round<TimePoint::duration>(by);
    runPosted();
    while (!m_timers.empty() && m_timers.begin()->first <= end) {
        auto timer = m_timers.extract(m_timers.begin());
        m_now = std::max(m_now, timer.key());
        timer.mapped()();
        runPosted();
    }
    m_now = end;
}

bool ManualRunLoop::runUntil(const std::function<bool()>& done, Seconds limit)
{
    const auto deadline = std::chrono::steady_clock::now()
        + std::chrono::round<std::chrono::steady_clock::duration>(limit);
    for (;;) {
        runPosted();
        if (done())
            return true;
        std::unique_lock lock(m_mutex);
        // done() may depend on something other than posted work, so look again from time to time.
        const auto next
            = std::min(deadline, std::chrono::steady_clock::now() + std::chrono::milliseconds(5));
        m_posted.wait_until(lock, next, [this] { return !m_work.empty(); });
        if (m_work.empty() && std::chrono::steady_clock::now() >= deadline)
            return false;
    }
}

void ManualRunLoop::schedule(Seconds delay, std::function<void()> work)
{
    const Seconds wait = std::max(delay, Seconds(0));
    m_timers.emplace(m_now + std::chrono::round<TimePoint::duration>(wait), std::move(work));
}

} // namespace lumeroom
