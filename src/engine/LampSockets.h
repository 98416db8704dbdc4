#pragma once

#include "engine/Records.h"
#include "engine/UdpSocket.h"

namespace lumeroom {

/// The engine's sockets: one per lamp, made when first needed, and one for discovery.
class LampSockets {
public:
    /// `delegate` receives what comes in on every socket.
    LampSockets(SocketFactory makeSocket, UdpSocketDelegate& delegate);

    /// The lamp's own socket, made if it has none that is open.
    const std::shared_ptr<UdpSocket>& socketFor(Lamp& lamp);
    /// The discovery socket, made with broadcast enabled if none is open.
    const std::shared_ptr<UdpSocket>& makeBroadcastSocket();
    /// The discovery socket as it stands; null before the first `makeBroadcastSocket`.
    const std::shared_ptr<UdpSocket>& broadcastSocket() const { return m_broadcastSocket; }

    /// Sends at once on the lamp's own socket and listens for what comes back.
    void sendDirect(Lamp& lamp, Datagram data);

    void closeUp(const Lamps& lamps);
    /// Lets go of every socket; the next send makes a new one.
    void invalidate(const Lamps& lamps);

private:
    SocketFactory m_makeSocket;
    UdpSocketDelegate& m_delegate;
    std::shared_ptr<UdpSocket> m_broadcastSocket;
};

} // namespace lumeroom
