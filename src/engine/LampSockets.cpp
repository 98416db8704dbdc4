#include "engine/LampSockets.h"

#include "engine/WireFormat.h"

#include <utility>

namespace lumeroom {

LampSockets::LampSockets(SocketFactory makeSocket, UdpSocketDelegate& delegate)
    : m_makeSocket(std::move(makeSocket))
    , m_delegate(delegate)
{
}

const std::shared_ptr<UdpSocket>& LampSockets::socketFor(Lamp& lamp)
{
    if (!lamp.socket || lamp.socket->isClosed())
        lamp.socket = m_makeSocket(m_delegate);
    return lamp.socket;
}

const std::shared_ptr<UdpSocket>& LampSockets::makeBroadcastSocket()
{
    if (!m_broadcastSocket || m_broadcastSocket->isClosed()) {
        m_broadcastSocket = m_makeSocket(m_delegate);
        m_broadcastSocket->enableBroadcast(true);
    }
    return m_broadcastSocket;
}

void LampSockets::sendDirect(Lamp& lamp, Datagram data)
{
    const auto& socket = socketFor(lamp);
    socket->sendDataToHost(std::move(data), lamp.address, wire::kLampPort);
    socket->beginReceiving();
}

void LampSockets::closeUp(const Lamps& lamps)
{
    for (const auto& lamp : lamps) {
        if (lamp->socket)
            lamp->socket->close();
    }
    if (m_broadcastSocket)
        m_broadcastSocket->close();
}

void LampSockets::invalidate(const Lamps& lamps)
{
    m_broadcastSocket.reset();
    for (const auto& lamp : lamps) {
        if (lamp->socket)
            lamp->previousSocket = std::exchange(lamp->socket, nullptr);
    }
}

} // namespace lumeroom
