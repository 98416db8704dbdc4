#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace lumeroom {

using TimePoint = std::chrono::system_clock::time_point;
using Seconds = std::chrono::duration<double>;

/// A pending `RunLoop::after` call. Dropping it cancels the call.
class Timer {
public:
    Timer() = default;
    Timer(Timer&&) = default;
    Timer& operator=(Timer&& other) noexcept;
    ~Timer() { cancel(); }

    void cancel();
    /// True from the moment it was made until it fires or is cancelled.
    bool isPending() const { return m_pending && *m_pending; }

private:
    friend class RunLoop;
    explicit Timer(std::shared_ptr<bool> pending)
        : m_pending(std::move(pending))
    {
    }

    std::shared_ptr<bool> m_pending;
};

/// The main thread's source of time and of deferred work.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// Runs `work` on the main thread, in the order posted. Any thread may call it.
    virtual void post(std::function<void()> work) = 0;
    /// Runs `work` once, `delay` from now, unless the timer is dropped first. Main thread only.
    [[nodiscard]] Timer after(Seconds delay, std::function<void()> work);
    /// The wall clock, for what a person reads. It may be set to another time at any moment.
    virtual TimePoint now() const = 0;
    /// A steady clock, for every duration. Where it starts means nothing.
    virtual Seconds elapsed() const = 0;

protected:
    virtual void schedule(Seconds delay, std::function<void()> work) = 0;
};

/// Lets work that was posted for an object lapse once the object is gone.
/// Owner and posted work live on the main thread; `guard` may be called from any thread.
class Lifeline {
public:
    std::function<void()> guard(std::function<void()> work) const;

private:
    std::shared_ptr<char> m_alive = std::make_shared<char>();
};

} // namespace lumeroom
