#include "base/RunLoop.h"

namespace lumeroom {

Timer& Timer::operator=(Timer&& other) noexcept
{
    if (this != &other) {
        cancel();
        m_pending = std::move(other.m_pending);
    }
    return *this;
}

void Timer::cancel()
{
    if (m_pending)
        *m_pending = false;
    m_pending.reset();
}

Timer RunLoop::after(Seconds delay, std::function<void()> work)
{
    auto pending = std::make_shared<bool>(true);
    schedule(delay, [pending, work = std::move(work)] {
        if (!*pending)
            return;
        *pending = false;
        work();
    });
    return Timer(std::move(pending));
}

std::function<void()> Lifeline::guard(std::function<void()> work) const
{
    return [alive = std::weak_ptr<char>(m_alive), work = std::move(work)] {
        if (!alive.expired())
            work();
    };
}

} // namespace lumeroom
