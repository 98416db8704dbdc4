#pragma once

#include "engine/UdpIoThread.h"

#include <array>
#include <atomic>
#include <deque>

namespace lumeroom {

class DatagramReader;
struct DatagramBatch;

/// An asynchronous datagram socket over IPv4 and IPv6. Its descriptors are made by the first send
/// that needs them and never bound explicitly, so the system picks the local port.
/// Dropping the last reference closes it.
class AsyncUdpSocket : public UdpSocket, public std::enable_shared_from_this<AsyncUdpSocket> {
public:
    static std::shared_ptr<AsyncUdpSocket> make(UdpSocketDelegate& delegate, UdpIoThread& io);
    ~AsyncUdpSocket() override;

    std::optional<SocketError> enableBroadcast(bool enabled) override;
    void sendDataToHost(Datagram data, const std::string& host, std::uint16_t port) override;
    std::optional<SocketError> beginReceiving() override;
    void close() override;
    bool isClosed() const override { return m_closed; }

    /// The sender's host as text, its port, and the address family as the system numbers it.
    static std::string hostFromAddress(const SocketAddress& address);
    static std::uint16_t portFromAddress(const SocketAddress& address);
    static int familyFromAddress(const SocketAddress& address);
    /// Whatever the ports.
    static bool isSameHost(const SocketAddress& one, const SocketAddress& other);

    // Called by the I/O thread
    void readAvailable(DatagramReader& reader);
    void flushPending();

private:
    struct Pending {
        Datagram data;
        std::string host;
        std::uint16_t port = 0;
        std::optional<SocketAddress> address; ///< nothing while the name is being looked up

        bool waitsFor(const std::string& name, std::uint16_t itsPort) const
        {
            return !address && host == name && port == itsPort;
        }
    };
    enum class Sent { Done, Later };

    AsyncUdpSocket(UdpSocketDelegate& delegate, UdpIoThread& io);

    // With m_mutex held
    int& descriptorFor(const SocketAddress& address);
    bool openDescriptor(int& descriptor, int family);
    Sent trySend(const Datagram& data, const std::string& host, const SocketAddress& address);
    bool isLookingUp(const std::string& host, std::uint16_t port) const;
    std::deque<Pending>::iterator firstReady();
    void enqueue(Pending pending);
    void flushLocked();
    void updateWatch(int descriptor);
    void closeLocked();

    void lookUp(const std::string& host, std::uint16_t port);
    void resolved(
        const std::string& host, std::uint16_t port, const std::optional<SocketAddress>& address);
    void deliver(const DatagramBatch& batch);
    void readFrom(int descriptor, DatagramReader& reader);

    UdpSocketDelegate& m_delegate;
    UdpIoThread& m_io;
    UdpIoThread::Key m_key = 0;

    std::mutex m_mutex;
    int m_ipv4 = -1;
    int m_ipv6 = -1;
    bool m_broadcast = false;
    bool m_receiving = false;
    bool m_readingPaused = false;
    bool m_overflowSaid = false;
    std::atomic<bool> m_closed = false;
    std::deque<Pending> m_pending; ///< with an address, or with a name that is being looked up
    std::size_t m_undelivered = 0;
};

} // namespace lumeroom
