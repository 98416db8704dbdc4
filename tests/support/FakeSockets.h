#pragma once

#include "engine/ArpTable.h"
#include "engine/UdpSocket.h"

#include <mutex>
#include <utility>

namespace lumeroom::test {

struct NoArpTable : ArpTable {
    void read(std::function<void(Result)>) override { }
};

struct SentDatagram {
    UdpSocket* socket = nullptr;
    Datagram data;
    std::string host;
    std::uint16_t port = 0;

    unsigned u16(std::size_t at) const { return data.at(at) + 256U * data.at(at + 1); }
    unsigned type() const { return data.size() < 34 ? 0U : u16(32); }
};

/// Sockets that keep what is sent, in the order of all sends.
class FakeSockets {
public:
    SocketFactory factory()
    {
        return [this](UdpSocketDelegate&) { return std::make_shared<Socket>(*this); };
    }

    std::vector<SentDatagram> sent() const
    {
        const std::lock_guard lock(m_mutex);
        return m_sent;
    }
    std::vector<SentDatagram> take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_sent, {});
    }
    /// Those of one message type.
    std::vector<SentDatagram> takeOfType(unsigned type)
    {
        std::vector<SentDatagram> all = take();
        std::erase_if(
            all, [type](const SentDatagram& datagram) { return datagram.type() != type; });
        return all;
    }
    int closed() const { return m_closed; }

private:
    class Socket : public UdpSocket {
    public:
        explicit Socket(FakeSockets& owner)
            : m_owner(owner)
        {
        }
        std::optional<SocketError> enableBroadcast(bool) override { return {}; }
        void sendDataToHost(Datagram data, const std::string& host, std::uint16_t port) override
        {
            const std::lock_guard lock(m_owner.m_mutex);
            m_owner.m_sent.push_back({this, std::move(data), host, port});
        }
        std::optional<SocketError> beginReceiving() override { return {}; }
        void close() override
        {
            m_closed = true;
            ++m_owner.m_closed;
        }
        bool isClosed() const override { return m_closed; }

    private:
        FakeSockets& m_owner;
        bool m_closed = false;
    };

    mutable std::mutex m_mutex;
    std::vector<SentDatagram> m_sent;
    int m_closed = 0;
};

} // namespace lumeroom::test
