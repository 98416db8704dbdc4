#include "base/Pacer.h"

#include <pthread.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace lumeroom {

namespace {

class PacedThread : public PacedTask {
public:
    PacedThread(std::string name, Pacer::Pass pass)
        : m_thread([this, name = std::move(name), pass = std::move(pass)] {
            // The kernel keeps 15 characters of a thread's name.
            pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
            while (pauseFor(pass())) { }
        })
    {
    }

    ~PacedThread() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_stopped = true;
        }
        m_stop.notify_all();
        m_thread.join();
    }

private:
    bool pauseFor(Seconds pause)
    {
        // Past this, the sum with the clock would overflow; nobody will see the difference.
        constexpr Seconds kLongest = std::chrono::hours(24 * 365);
        std::unique_lock lock(m_mutex);
        const auto stopped = [this] { return m_stopped; };
        if (!(pause < kLongest)) {
            m_stop.wait(lock, stopped);
            return false;
        }
        const auto wait = std::chrono::ceil<std::chrono::nanoseconds>(std::max(pause, Seconds(0)));
        return !m_stop.wait_for(lock, wait, stopped);
    }

    std::mutex m_mutex;
    std::condition_variable m_stop;
    bool m_stopped = false;
    std::thread m_thread;
};

} // namespace

std::unique_ptr<PacedTask> ThreadPacer::start(std::string name, Pass pass)
{
    return std::make_unique<PacedThread>(std::move(name), std::move(pass));
}

} // namespace lumeroom
