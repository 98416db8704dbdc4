#include "engine/AsyncUdpSocket.h"

#include "base/RunLoop.h"
#include "engine/BroadcastSend.h"
#include "engine/DatagramReader.h"
#include "engine/HostResolver.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace lumeroom {

namespace {

constexpr std::size_t kMostPending = 1024;
// While the main thread is behind by this much, further datagrams wait in the system's buffer.
constexpr std::size_t kMostUndelivered = 4096;
constexpr int kReceiveBufferBytes = 1 << 20;
constexpr int kBatchesPerWake = 4; // then another socket has its turn

SocketError socketError(std::string_view text)
{
    return {"AsyncUdpSocketErrorDomain", std::string(text)};
}

const sockaddr* systemAddress(const SocketAddress& address)
{
    return reinterpret_cast<const sockaddr*>(address.bytes.data());
}

} // namespace

std::shared_ptr<AsyncUdpSocket> AsyncUdpSocket::make(UdpSocketDelegate& delegate, UdpIoThread& io)
{
    std::shared_ptr<AsyncUdpSocket> socket(new AsyncUdpSocket(delegate, io));
    socket->m_key = io.add(socket);
    return socket;
}

AsyncUdpSocket::AsyncUdpSocket(UdpSocketDelegate& delegate, UdpIoThread& io)
    : m_delegate(delegate)
    , m_io(io)
{
}

AsyncUdpSocket::~AsyncUdpSocket()
{
    close();
}

std::optional<SocketError> AsyncUdpSocket::enableBroadcast(bool enabled)
{
    const std::lock_guard lock(m_mutex);
    m_broadcast = enabled;
    const int value = enabled ? 1 : 0;
    if (m_ipv4 >= 0 && ::setsockopt(m_ipv4, SOL_SOCKET, SO_BROADCAST, &value, sizeof value) != 0)
        return socketError(std::strerror(errno));
    return {};
}

void AsyncUdpSocket::sendDataToHost(Datagram data, const std::string& host, std::uint16_t port)
{
    if (data.empty() || m_closed)
        return;
    auto address = addressFromLiteral(host, port);
    if (!address) {
        if (const auto answer = m_io.resolver().remembered(host, port)) {
            if (!answer->address)
                return; // there is no such host, as was said when it was looked up
            address = answer->address;
        }
    }
    {
        const std::lock_guard lock(m_mutex);
        const bool asked = isLookingUp(host, port);
        if (asked)
            address.reset(); // behind those that wait for it
        if (address && firstReady() == m_pending.end()
            && trySend(data, host, *address) == Sent::Done)
            return;
        enqueue({std::move(data), host, port, address});
        if (address)
            updateWatch(descriptorFor(*address));
        if (address || asked)
            return;
    }
    lookUp(host, port);
}

std::optional<SocketError> AsyncUdpSocket::beginReceiving()
{
    const std::lock_guard lock(m_mutex);
    if (m_closed)
        return socketError("Socket closed");
    if (m_receiving)
        return {};
    if (m_ipv4 < 0 && m_ipv6 < 0) {
        return socketError("Must bind socket before you can receive data. You can do this "
                           "explicitly via bind, or implicitly via connect or by sending data.");
    }
    m_receiving = true;
    updateWatch(m_ipv4);
    updateWatch(m_ipv6);
    return {};
}

void AsyncUdpSocket::close()
{
    const std::lock_guard lock(m_mutex);
    closeLocked();
}

void AsyncUdpSocket::closeLocked()
{
    if (m_closed.exchange(true))
        return;
    m_io.remove(m_key);
    m_pending.clear();
    for (int* descriptor : {&m_ipv4, &m_ipv6}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
}

int& AsyncUdpSocket::descriptorFor(const SocketAddress& address)
{
    return familyFromAddress(address) == AF_INET6 ? m_ipv6 : m_ipv4;
}

bool AsyncUdpSocket::openDescriptor(int& descriptor, int family)
{
    static const std::string kSocket = "anything, for want of a socket";
    descriptor = ::socket(family, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        m_io.complaints().failed(kSocket, errno);
        return false;
    }
    m_io.complaints().succeeded(kSocket);
    ::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &kReceiveBufferBytes, sizeof(int));
    const int broadcast = m_broadcast ? 1 : 0;
    if (family == AF_INET)
        ::setsockopt(descriptor, SOL_SOCKET, SO_BROADCAST, &broadcast, sizeof broadcast);
    if (m_receiving)
        updateWatch(descriptor);
    return true;
}

/// Sends, or finds that it cannot be sent: both are done. Later: the system has no room just now.
AsyncUdpSocket::Sent AsyncUdpSocket::trySend(
    const Datagram& data, const std::string& host, const SocketAddress& address)
{
    if (m_closed)
        return Sent::Done;
    int& descriptor = descriptorFor(address);
    if (descriptor < 0 && !openDescriptor(descriptor, familyFromAddress(address)))
        return Sent::Done;
    const bool toEveryone = isLimitedBroadcast(address);
    const auto send = [&] {
        if (toEveryone)
            return sendByEveryInterface(descriptor, data, address);
        return ::sendto(descriptor, data.data(), data.size(), MSG_DONTWAIT | MSG_NOSIGNAL,
            systemAddress(address), address.length);
    };
    ssize_t sent = send();
    if (sent < 0 && (errno == EINTR || errno == ECONNREFUSED))
        sent = send(); // a refusal tells of an earlier datagram
    if (sent >= 0)
        m_io.complaints().succeeded(host);
    else if (errno == EAGAIN || errno == EWOULDBLOCK)
        return Sent::Later;
    else
        m_io.complaints().failed(host, errno);
    return Sent::Done;
}

bool AsyncUdpSocket::isLookingUp(const std::string& host, std::uint16_t port) const
{
    return std::any_of(m_pending.begin(), m_pending.end(),
        [&](const Pending& pending) { return pending.waitsFor(host, port); });
}

/// What goes out next: all in order, but that nobody waits for the name of another host.
std::deque<AsyncUdpSocket::Pending>::iterator AsyncUdpSocket::firstReady()
{
    return std::find_if(m_pending.begin(), m_pending.end(),
        [](const Pending& pending) { return pending.address.has_value(); });
}

void AsyncUdpSocket::enqueue(Pending pending)
{
    if (m_closed)
        return;
    if (m_pending.size() < kMostPending) {
        m_pending.push_back(std::move(pending));
        return;
    }
    if (!m_overflowSaid)
        m_io.complaints().failed(pending.host, ENOBUFS);
    m_overflowSaid = true;
}

void AsyncUdpSocket::flushPending()
{
    const std::lock_guard lock(m_mutex);
    flushLocked();
}

void AsyncUdpSocket::flushLocked()
{
    for (auto next = firstReady(); next != m_pending.end(); next = firstReady()) {
        if (trySend(next->data, next->host, *next->address) == Sent::Later)
            break;
        m_pending.erase(next);
    }
    updateWatch(m_ipv4);
    updateWatch(m_ipv6);
}

void AsyncUdpSocket::updateWatch(int descriptor)
{
    if (descriptor < 0)
        return;
    const bool read = m_receiving && !m_readingPaused;
    const auto next = firstReady();
    const bool write = next != m_pending.end() && descriptorFor(*next->address) == descriptor;
    const std::uint32_t events
        = (read ? std::uint32_t(EPOLLIN) : 0U) | (write ? std::uint32_t(EPOLLOUT) : 0U);
    m_io.watch(m_key, descriptor, events);
}

void AsyncUdpSocket::lookUp(const std::string& host, std::uint16_t port)
{
    m_io.resolver().lookUp(
        host, port, [weak = weak_from_this(), host, port](const HostResolver::Answer& answer) {
            if (const auto socket = weak.lock())
                socket->resolved(host, port, answer.address);
        });
}

void AsyncUdpSocket::resolved(
    const std::string& host, std::uint16_t port, const std::optional<SocketAddress>& address)
{
    const std::lock_guard lock(m_mutex);
    const auto isWaiting = [&](const Pending& pending) { return pending.waitsFor(host, port); };
    if (!address) {
        m_io.complaints().hostIsUnknown(host);
        std::erase_if(m_pending, isWaiting);
    }
    for (Pending& pending : m_pending) {
        if (isWaiting(pending))
            pending.address = address;
    }
    flushLocked();
}

void AsyncUdpSocket::readAvailable(DatagramReader& reader)
{
    int descriptors[2];
    {
        const std::lock_guard lock(m_mutex);
        descriptors[0] = m_ipv4;
        descriptors[1] = m_ipv6;
    }
    for (const int descriptor : descriptors) {
        if (descriptor >= 0)
            readFrom(descriptor, reader);
    }
}

void AsyncUdpSocket::readFrom(int descriptor, DatagramReader& reader)
{
    for (int round = 0; round < kBatchesPerWake; ++round) {
        auto batch = std::make_shared<DatagramBatch>();
        {
            // Held while reading, so that the descriptor cannot be closed and its number reused.
            const std::lock_guard lock(m_mutex);
            const bool stillOurs = descriptor == m_ipv4 || descriptor == m_ipv6;
            if (!stillOurs || !m_receiving || m_readingPaused)
                return;
            auto result = reader.read(descriptor);
            if (result.error != 0) {
                m_io.complaints().readFailed(result.error);
                closeLocked();
                return;
            }
            if (result.batch.entries.empty())
                return;
            *batch = std::move(result.batch);
            m_undelivered += batch->entries.size();
            if (m_undelivered >= kMostUndelivered) {
                m_readingPaused = true;
                updateWatch(m_ipv4);
                updateWatch(m_ipv6);
            }
        }
        const bool more = batch->entries.size() == DatagramReader::kBatch;
        m_io.runLoop().post([weak = weak_from_this(), batch] {
            if (const auto socket = weak.lock())
                socket->deliver(*batch);
        });
        if (!more)
            return;
    }
}

void AsyncUdpSocket::deliver(const DatagramBatch& batch)
{
    for (const auto& entry : batch.entries) {
        if (m_closed)
            return;
        m_delegate.udpSocketDidReceiveData(
            *this, std::span(batch.bytes).subspan(entry.offset, entry.size), entry.from);
    }
    const std::lock_guard lock(m_mutex);
    m_undelivered -= batch.entries.size();
    if (m_readingPaused && m_undelivered < kMostUndelivered / 2) {
        m_readingPaused = false;
        updateWatch(m_ipv4);
        updateWatch(m_ipv6);
    }
}

std::string AsyncUdpSocket::hostFromAddress(const SocketAddress& address)
{
    std::array<char, NI_MAXHOST> host{};
    if (::getnameinfo(systemAddress(address), address.length, host.data(), host.size(), nullptr, 0,
            NI_NUMERICHOST)
        != 0)
        return {};
    return host.data();
}

std::uint16_t AsyncUdpSocket::portFromAddress(const SocketAddress& address)
{
    // The port stands at the same place for both families, in network order.
    std::uint16_t port = 0;
    std::memcpy(&port, address.bytes.data() + offsetof(sockaddr_in, sin_port), sizeof port);
    return ntohs(port);
}

int AsyncUdpSocket::familyFromAddress(const SocketAddress& address)
{
    sa_family_t family = AF_UNSPEC;
    std::memcpy(&family, address.bytes.data(), sizeof family);
    return family;
}

bool AsyncUdpSocket::isSameHost(const SocketAddress& one, const SocketAddress& other)
{
    const int family = familyFromAddress(one);
    if (family != familyFromAddress(other))
        return false;
    const auto sameBytes = [&](std::size_t offset, std::size_t count) {
        return std::memcmp(one.bytes.data() + offset, other.bytes.data() + offset, count) == 0;
    };
    if (family == AF_INET)
        return sameBytes(offsetof(sockaddr_in, sin_addr), sizeof(in_addr));
    return family == AF_INET6 && sameBytes(offsetof(sockaddr_in6, sin6_addr), sizeof(in6_addr))
        && sameBytes(offsetof(sockaddr_in6, sin6_scope_id), sizeof(std::uint32_t));
}

} // namespace lumeroom
