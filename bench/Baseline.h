#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <vector>

namespace lumeroom::bench {

/// A plain socket of the system's on 127.0.0.1.
class PlainSocket {
public:
    PlainSocket()
        : m_descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_descriptor, reinterpret_cast<sockaddr*>(&m_address), sizeof m_address);
        socklen_t length = sizeof m_address;
        ::getsockname(m_descriptor, reinterpret_cast<sockaddr*>(&m_address), &length);
        const int room = 1 << 22;
        ::setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUF, &room, sizeof room);
    }
    ~PlainSocket() { ::close(m_descriptor); }
    PlainSocket(const PlainSocket&) = delete;
    PlainSocket& operator=(const PlainSocket&) = delete;

    int descriptor() const { return m_descriptor; }
    const sockaddr_in& address() const { return m_address; }
    void sendTo(const sockaddr_in& to, const std::vector<std::uint8_t>& data) const
    {
        ::sendto(m_descriptor, data.data(), data.size(), 0, reinterpret_cast<const sockaddr*>(&to),
            sizeof to);
    }

private:
    int m_descriptor;
    sockaddr_in m_address{};
};

} // namespace lumeroom::bench
