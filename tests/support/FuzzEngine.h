#pragma once

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/ArpTable.h"
#include "engine/EngineRoom.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

namespace lumeroom::test {

/// An engine that keeps nothing of what it sends or logs, to throw datagrams at.
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
            m_socket, datagram, socketAddress(lampAddress(from), 56700));
        if (++m_taken % 10000 == 0)
            m_loop.advance(Seconds(5)); // empties the queue
    }

    EngineRoom& engine() { return m_engine; }

private:
    struct NoSocket : UdpSocket {
        std::optional<SocketError> enableBroadcast(bool) override { return {}; }
        void sendDataToHost(Datagram, const std::string&, std::uint16_t) override { }
        std::optional<SocketError> beginReceiving() override { return {}; }
        void close() override { }
        bool isClosed() const override { return false; }
    };
    struct NoArpTable : ArpTable {
        void read(std::function<void(Result)>) override { }
    };

    Log m_log{[](std::string_view) {}};
    ManualRunLoop m_loop;
    RunLoopPacer m_pacer{m_loop};
    UserDefaults m_defaults;
    NoArpTable m_arp;
    NoSocket m_socket;
    std::size_t m_taken = 0;
    EngineRoom m_engine{{m_loop, m_pacer, m_defaults, m_log,
        [](UdpSocketDelegate&) { return std::make_shared<NoSocket>(); },
        [] {
            return std::string(
                R"([{"products":[{"pid":31,"name":"Strip","features":{"multizone":true}}]}])");
        },
        m_arp}};
};

} // namespace lumeroom::test
