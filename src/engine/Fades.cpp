#include "engine/Fades.h"

#include "engine/LampRegistry.h"
#include "engine/Polls.h"

#include <utility>

namespace lumeroom {

namespace {

constexpr Seconds kOnTheWay(0.1); // a report that left the lamp before it was told
constexpr Seconds kShort(1.0); // during a longer one, the heartbeat's reports show it going on
constexpr Seconds kMostFades(0.6); // the usual ones are over by then

} // namespace

Fades::Fades(LampRegistry& registry, Polls& polls, RunLoop& runLoop)
    : m_registry(registry)
    , m_polls(polls)
    , m_runLoop(runLoop)
    , m_askAgain(
          runLoop, [this] { askAgain(); }, kMostFades)
{
}

void Fades::begin(Lamp& lamp, std::uint32_t milliseconds)
{
    const Seconds fade = std::chrono::milliseconds(milliseconds);
    lamp.settles = fade < kShort ? m_runLoop.elapsed() + fade + kOnTheWay : Seconds{};
}

void Fades::lampHasReported(const Target& target)
{
    const Lamp* lamp = m_registry.lampWithTarget(target);
    if (!lamp || m_runLoop.elapsed() >= lamp->settles)
        return;
    m_passing.insert(target);
    m_askAgain.request();
}

// One that is still fading, by what it was told since, tells so again.
void Fades::askAgain()
{
    for (const Target& target : std::exchange(m_passing, {})) {
        if (Lamp* lamp = m_registry.lampWithTarget(target))
            m_polls.sendGetStateToLamp(*lamp);
    }
}

} // namespace lumeroom
