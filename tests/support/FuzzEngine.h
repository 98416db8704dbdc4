#pragma once

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "support/FakeSockets.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

namespace lumeroom::test {

/// An engine that forgets what it sends and logs, to throw datagrams at.
class FuzzEngine {
public:
    FuzzEngine()
    {
        for (unsigned n = 1; n <= 4; ++n)
            take(stateService(n), n);
    }

    void take(std::span<const std::uint8_t> datagram, unsigned from)
    {
        m_engine.udpSocketDidReceiveData(
            *m_socket, datagram, socketAddress(lampAddress(from), 56700));
        if (++m_taken % 10000 != 0)
            return;
        m_loop.advance(Seconds(5));
        m_sockets.take();
    }
    EngineRoom& engine() { return m_engine; }

private:
    Log m_log{[](std::string_view) {}};
    ManualRunLoop m_loop;
    RunLoopPacer m_pacer{m_loop};
    UserDefaults m_defaults;
    NoArpTable m_arp;
    FakeSockets m_sockets;
    std::size_t m_taken = 0;
    EngineRoom m_engine{{m_loop, m_pacer, m_defaults, m_log, m_sockets.factory(),
        [] {
            return R"([{"products":[{"pid":31,"name":"Strip","features":{"multizone":true}}]}])";
        },
        m_arp}};
    const std::shared_ptr<UdpSocket> m_socket = m_sockets.factory()(m_engine);
};

} // namespace lumeroom::test
