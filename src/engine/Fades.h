#pragma once

#include "base/CallSoon.h"
#include "engine/WireFormat.h"

#include <set>

namespace lumeroom {

class LampRegistry;
class Polls;
struct Lamp;

/// A lamp that is asked while it fades tells the colour and power that it passes. Such a one is
/// asked again when its fade is over, so that its record is not wrong until the next heartbeat.
class Fades {
public:
    Fades(LampRegistry& registry, Polls& polls, RunLoop& runLoop);

    /// The lamp was sent a change that takes this long.
    void begin(Lamp& lamp, std::uint32_t milliseconds);
    /// The lamp has told its state.
    void lampHasReported(const Target& target);

private:
    void askAgain();

    LampRegistry& m_registry;
    Polls& m_polls;
    RunLoop& m_runLoop;
    std::set<Target> m_passing; ///< those that reported within their fade
    CallSoon m_askAgain;
};

} // namespace lumeroom
