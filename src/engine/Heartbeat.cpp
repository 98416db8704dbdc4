#include "engine/Heartbeat.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/Discovery.h"
#include "engine/EngineNotifier.h"
#include "engine/PollingEmbargo.h"
#include "engine/Polls.h"

#include <array>

namespace lumeroom {

namespace {

/// The pause after each step, in seconds at speed 1.
constexpr std::array kPausesSeconds{1.0, 0.5, 0.5, 0.5, 0.5};
constexpr double kShortestPauseSeconds = 0.01; // a mistyped speed must not spin

} // namespace

Heartbeat::Heartbeat(const Environment& environment)
    : m_environment(environment)
{
}

void Heartbeat::startHeartbeat()
{
    if (m_heartbeatRunning)
        m_environment.log.line("attempt to start heartbeatRunning while already running!");
    m_heartbeatRunning = true;
    m_environment.notifier.sendEngineIsSsearchingToDelegate(true);
    m_tasks.push_back(m_environment.pacer.start(
        "heartbeat", [this, cycle = Cycle()]() mutable { return pass(cycle); }));
}

Seconds Heartbeat::pass(Cycle& cycle)
{
    if (cycle.step == 0)
        cycle.speed = speed();
    const std::size_t step = cycle.step;
    m_environment.runLoop.post(m_lifeline.guard([this, step] { perform(step); }));
    cycle.step = (step + 1) % kPausesSeconds.size();
    return Seconds(std::max(kPausesSeconds[step] / cycle.speed, kShortestPauseSeconds));
}

void Heartbeat::perform(std::size_t step)
{
    const bool mayAskForGroups = !m_environment.embargo.isSet();
    switch (step) {
    case 0:
        m_environment.discovery.broadcastGetService();
        break;
    case 1:
        m_environment.discovery.broadcastGetTagLabelsToLamps();
        break;
    case 2:
        if (mayAskForGroups)
            m_environment.polls.sendGetGroupToAllLamps();
        break;
    case 3:
        if (mayAskForGroups)
            m_environment.polls.sendGetLocationToAllLamps();
        break;
    case 4:
        m_environment.discovery.broadcastGetInfoToLamps();
        break;
    default:
        break;
    }
}

/// A speed of 0 makes the first pause endless, which stops the polling.
double Heartbeat::speed() const
{
    return m_environment.defaults.get(keys::kHeartbeatSpeed);
}

} // namespace lumeroom
