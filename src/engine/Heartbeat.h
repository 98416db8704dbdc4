#pragma once

#include "base/Pacer.h"

#include <vector>

namespace lumeroom {

class Discovery;
class EngineNotifier;
class Log;
class Polls;
class PollingEmbargo;
class UserDefaults;

/// Asks the lamps for their state, over and over: five steps in 3.0 seconds, divided by the user
/// default "heartbeatSpeed". The pace is kept on its own thread, each step runs on the main thread.
class Heartbeat {
public:
    struct Environment {
        RunLoop& runLoop;
        Pacer& pacer;
        const UserDefaults& defaults;
        Log& log;
        const EngineNotifier& notifier;
        Discovery& discovery;
        Polls& polls;
        const PollingEmbargo& embargo;
    };
    explicit Heartbeat(const Environment& environment);

    void startHeartbeat();

private:
    /// Where one running cycle stands; touched by its pace-keeper only.
    struct Cycle {
        std::size_t step = 0;
        double speed = 1.0;
    };

    Seconds pass(Cycle& cycle);
    void perform(std::size_t step);
    double speed() const;

    Environment m_environment;
    bool m_heartbeatRunning = false;
    Lifeline m_lifeline;
    std::vector<std::unique_ptr<PacedTask>> m_tasks;
};

} // namespace lumeroom
