#include "base/CallSoon.h"

namespace lumeroom {

CallSoon::CallSoon(RunLoop& runLoop, std::function<void()> work, Seconds delay)
    : m_runLoop(runLoop)
    , m_delay(delay)
    , m_state(std::make_shared<State>())
{
    m_state->work = std::move(work);
}

void CallSoon::request()
{
    if (m_state->requested.exchange(true))
        return;
    const auto perform = [weak = std::weak_ptr(m_state)] {
        const auto state = weak.lock(); // the work may end its owner
        if (state && state->requested.exchange(false))
            state->work();
    };
    m_runLoop.post([weak = std::weak_ptr(m_state), &runLoop = m_runLoop, delay = m_delay, perform] {
        const auto state = weak.lock();
        if (!state)
            return;
        if (delay > Seconds(0))
            state->timer = runLoop.after(delay, perform);
        else
            perform();
    });
}

} // namespace lumeroom
