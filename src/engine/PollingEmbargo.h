#pragma once

#include "base/RunLoop.h"

#include <vector>

namespace lumeroom {

/// Holds off the polling of groups and locations while a change travels to the lamps.
class PollingEmbargo {
public:
    explicit PollingEmbargo(RunLoop& runLoop)
        : m_runLoop(runLoop)
    {
    }

    bool isSet() const { return m_set; }
    /// For 15 seconds. A further call does not put off the end of an earlier one, so the first to
    /// run out ends the embargo.
    void imposeTemporaryEmbargo();
    void liftEmbargoOnGroupsAndLocations() { m_set = false; }

private:
    RunLoop& m_runLoop;
    bool m_set = false;
    std::vector<Timer> m_lifts;
};

} // namespace lumeroom
