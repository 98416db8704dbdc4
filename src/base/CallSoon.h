#pragma once

#include "base/RunLoop.h"

#include <atomic>

namespace lumeroom {

/// Work that is done once soon, however often it is asked for until then. It lapses with its owner.
/// Owner and work live on the main thread.
class CallSoon {
public:
    /// `delay` counts from the first request.
    CallSoon(RunLoop& runLoop, std::function<void()> work, Seconds delay = Seconds(0));

    /// Any thread may ask. While the work runs, asking has it done once more.
    void request();

private:
    struct State {
        std::function<void()> work;
        std::atomic<bool> requested = false;
        Timer timer;
    };

    RunLoop& m_runLoop;
    Seconds m_delay;
    std::shared_ptr<State> m_state;
};

} // namespace lumeroom
