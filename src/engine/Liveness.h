#pragma once

#include "engine/Records.h"
#include "engine/UdpSocket.h"

namespace lumeroom {

class Discovery;
class EngineNotifier;
class LampRegistry;
class RunLoop;
class SendQueue;

/// Tells the lamps that answer from those that only say that they are there. An announcement is
/// easily forged, by the thousand; an answer on the lamp's own socket, whose port is known to
/// nobody else, is not.
class Liveness {
public:
    Liveness(LampRegistry& registry, const EngineNotifier& notifier, Discovery& discovery,
        SendQueue& queue, RunLoop& runLoop);

    /// Whether one more lamp may have a record. Some hundred that never answered have one; beyond
    /// that, one that was asked in vain loses its own.
    bool makeRoomForOneMore();
    /// `lamp` has a new record.
    void added(const std::shared_ptr<Lamp>& lamp);
    /// A lamp said that it is there.
    void announced(Lamp& lamp);
    /// A lamp's report came in by `socket`, from an address.
    void received(const Target& target, const UdpSocket& socket, const SocketAddress& from);

private:
    void endSilence(const Lamp& lamp);
    void heard(Lamp& lamp);
    void answered(Lamp& lamp);

    LampRegistry& m_registry;
    const EngineNotifier& m_notifier;
    Discovery& m_discovery;
    SendQueue& m_queue;
    RunLoop& m_runLoop;
    Lamps m_neverAnswered; ///< oldest first
};

} // namespace lumeroom
