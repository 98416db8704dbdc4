#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace lumeroom {

using Datagram = std::vector<std::uint8_t>;

/// Where a datagram came from: the bytes of a system socket address, to be read through
/// `AsyncUdpSocket::hostFromAddress` and its companions.
struct SocketAddress {
    std::array<std::uint8_t, 28> bytes{}; // room for an IPv6 address
    std::uint8_t length = 0;
};

struct SocketError {
    std::string domain;
    std::string text;
};

class UdpSocket;

class UdpSocketDelegate {
public:
    virtual ~UdpSocketDelegate() = default;
    /// One call per datagram, on the main thread. The bytes are valid during the call.
    virtual void udpSocketDidReceiveData(
        UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from)
        = 0;
};

/// What the engine needs of a datagram socket. Every operation may be called from any thread, and
/// none waits for the network.
class UdpSocket {
public:
    virtual ~UdpSocket() = default;

    virtual std::optional<SocketError> enableBroadcast(bool enabled) = 0;
    /// Sends to an IP address (or a host name, which is resolved in the background). Sends on one
    /// socket leave in order, but that none waits for another host's name. Empty data is not sent;
    /// failures are not reported to the caller.
    virtual void sendDataToHost(Datagram data, const std::string& host, std::uint16_t port) = 0;
    /// Starts continuous delivery; later calls do nothing and succeed. Answers the error, if any.
    virtual std::optional<SocketError> beginReceiving() = 0;
    virtual void close() = 0;
    /// By `close`, or by an error of the system's.
    virtual bool isClosed() const = 0;
};

using SocketFactory = std::function<std::shared_ptr<UdpSocket>(UdpSocketDelegate& delegate)>;

} // namespace lumeroom
