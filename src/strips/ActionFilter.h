#pragma once

#include "base/RunLoop.h"

namespace lumeroom {

/// Lets at most one action through per tenth of a second. It carries no value: whoever receives the
/// action reads the control then, so the last position is never lost.
class ActionFilter {
public:
    ActionFilter(RunLoop& runLoop, std::function<void()> fireFilteredAction)
        : m_runLoop(runLoop)
        , m_fireFilteredAction(std::move(fireFilteredAction))
    {
    }

    void controlDidChange();
    void cancel() { m_timer.cancel(); }
    /// A change is on its way.
    bool isPending() const { return m_timer.isPending() || *m_firing; }

private:
    RunLoop& m_runLoop;
    std::function<void()> m_fireFilteredAction;
    Timer m_timer;
    std::shared_ptr<bool> m_firing
        = std::make_shared<bool>(false); ///< the control may go meanwhile
};

} // namespace lumeroom
