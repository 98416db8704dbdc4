#pragma once

#include "base/RunLoop.h"

namespace lumeroom {

/// The flag that keeps the lamps' reports off a strip's controls: for some seconds after a touch,
/// during a routine that only shows settings, and while the strip is out of use.
class StripEmbargo {
public:
    /// `lifted` is called when a temporary embargo has run out.
    StripEmbargo(RunLoop& runLoop, std::function<void()> lifted)
        : m_runLoop(runLoop)
        , m_lifted(std::move(lifted))
    {
    }

    bool isSet() const { return m_set; }
    void set(bool set) { m_set = set; }

    /// Sets it for at least 5 seconds from now, and at most about 7.
    void imposeTemporaryEmbargo();

    /// Keeps it set during a scope, and puts back what it was.
    class Hold {
    public:
        explicit Hold(StripEmbargo& embargo)
            : m_embargo(embargo)
            , m_before(embargo.m_set)
        {
            m_embargo.m_set = true;
        }
        ~Hold() { m_embargo.m_set = m_before; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        StripEmbargo& m_embargo;
        bool m_before;
    };

private:
    void removeEmbargo();

    RunLoop& m_runLoop;
    std::function<void()> m_lifted;
    bool m_set = false;
    Seconds m_until{}; ///< on the run loop's steady clock
    Timer m_timer;
};

} // namespace lumeroom
