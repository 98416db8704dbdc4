#include "LampNetwork.h"

#include "TrafficLog.h"

#include <arpa/inet.h>
#include <fmt/core.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace virtual_lamps {

namespace {

constexpr std::size_t kLargestDatagram = 2048;

bool makeAddress(const std::string& text, std::uint16_t port, sockaddr_in& address)
{
    address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    return ::inet_pton(AF_INET, text.c_str(), &address.sin_addr) == 1;
}

/// A socket bound to the address, or -1 with the reason.
int boundSocket(const std::string& text, std::uint16_t port, std::string& error)
{
    sockaddr_in address{};
    if (!makeAddress(text, port, address)) {
        error = fmt::format("{} is no IPv4 address", text);
        return -1;
    }
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_BROADCAST, &yes, sizeof yes);
    if (socket >= 0
        && ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return socket;
    error = fmt::format("cannot use {} port {}: {}", text, port, std::strerror(errno));
    if (socket >= 0)
        ::close(socket);
    return -1;
}

std::string peerText(const sockaddr_in& peer)
{
    char host[INET_ADDRSTRLEN] = {};
    ::inet_ntop(AF_INET, &peer.sin_addr, host, sizeof host);
    return fmt::format("{}:{}", host, ntohs(peer.sin_port));
}

Time present()
{
    return std::chrono::steady_clock::now();
}

} // namespace

LampNetwork::LampNetwork(Options options)
    : m_options(std::move(options))
    , m_random(m_options.faults.seed)
    , m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

LampNetwork::~LampNetwork()
{
    stop();
    for (const Station& station : m_stations)
        ::close(station.socket);
    if (m_broadcastSocket >= 0)
        ::close(m_broadcastSocket);
    ::close(m_wake);
}

bool LampNetwork::add(
    std::unique_ptr<VirtualLamp> lamp, const std::string& address, std::string& error)
{
    const int socket = boundSocket(address, m_options.port, error);
    if (socket < 0)
        return false;
    const std::lock_guard lock(m_mutex);
    m_stations.push_back({std::move(lamp), address, socket});
    return true;
}

bool LampNetwork::start(std::string& error)
{
    // A socket bound to a lamp's own address does not hear broadcasts; one bound to the broadcast
    // address hears nothing else.
    if (m_options.broadcast && m_broadcastSocket < 0) {
        m_broadcastSocket = boundSocket("255.255.255.255", m_options.port, error);
        if (m_broadcastSocket < 0)
            return false;
    }
    m_stopping = false;
    m_thread = std::thread([this] { run(); });
    return true;
}

void LampNetwork::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    wake();
    if (m_thread.joinable())
        m_thread.join();
}

void LampNetwork::wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(m_wake, &one, sizeof one);
}

std::size_t LampNetwork::count() const
{
    const std::lock_guard lock(m_mutex);
    return m_stations.size();
}

std::string LampNetwork::address(std::size_t index) const
{
    const std::lock_guard lock(m_mutex);
    return m_stations.at(index).address;
}

void LampNetwork::withLamp(
    std::size_t index, const std::function<void(VirtualLamp&, Time now)>& use)
{
    const std::lock_guard lock(m_mutex);
    use(*m_stations.at(index).lamp, present());
}

void LampNetwork::setSilent(std::size_t index, bool silent)
{
    const std::lock_guard lock(m_mutex);
    m_stations.at(index).silent = silent;
}

bool LampNetwork::moveTo(std::size_t index, const std::string& address, std::string& error)
{
    const int socket = boundSocket(address, m_options.port, error);
    if (socket < 0)
        return false;
    const std::lock_guard lock(m_mutex);
    Station& station = m_stations.at(index);
    ::close(station.socket);
    station.socket = socket;
    station.address = address;
    wake();
    return true;
}

void LampNetwork::schedule(Milliseconds after, std::function<void()> action)
{
    const std::lock_guard lock(m_mutex);
    m_due.emplace(present() + after, std::move(action));
    wake();
}

void LampNetwork::run()
{
    for (;;) {
        std::vector<pollfd> waiting{{m_wake, POLLIN, 0}};
        int timeout = -1;
        {
            const std::lock_guard lock(m_mutex);
            if (m_stopping)
                return;
            for (const Station& station : m_stations)
                waiting.push_back({station.socket, POLLIN, 0});
            if (m_broadcastSocket >= 0)
                waiting.push_back({m_broadcastSocket, POLLIN, 0});
            if (!m_due.empty()) {
                const auto wait
                    = std::chrono::ceil<Milliseconds>(m_due.begin()->first - present()).count();
                timeout = static_cast<int>(std::max<Milliseconds::rep>(wait, 0));
            }
        }
        ::poll(waiting.data(), waiting.size(), timeout);
        if (waiting[0].revents != 0) {
            std::uint64_t count = 0;
            [[maybe_unused]] const auto got = ::read(m_wake, &count, sizeof count);
        }
        const std::lock_guard lock(m_mutex);
        for (std::size_t i = 1; i < waiting.size(); ++i) {
            if ((waiting[i].revents & POLLIN) != 0)
                serve(waiting[i].fd);
        }
        runDue();
    }
}

void LampNetwork::serve(int socket)
{
    std::uint8_t buffer[kLargestDatagram];
    for (;;) {
        sockaddr_in from{};
        socklen_t length = sizeof from;
        const ssize_t size = ::recvfrom(
            socket, buffer, sizeof buffer, 0, reinterpret_cast<sockaddr*>(&from), &length);
        if (size < 0)
            return;
        const ByteView datagram(buffer, static_cast<std::size_t>(size));
        for (std::size_t i = 0; i < m_stations.size(); ++i) {
            if (socket == m_stations[i].socket || socket == m_broadcastSocket)
                handle(i, datagram, from);
        }
    }
}

void LampNetwork::handle(std::size_t index, ByteView datagram, const sockaddr_in& from)
{
    Station& station = m_stations[index];
    if (station.silent)
        return;
    if (happens(m_options.faults.loss)) {
        log(index, true, from, datagram, "lost");
        return;
    }
    log(index, true, from, datagram, {});
    for (const Bytes& reply : station.lamp->handle(datagram, present()))
        answer(index, reply, from);
}

void LampNetwork::answer(std::size_t index, const Bytes& datagram, const sockaddr_in& to)
{
    if (happens(m_options.faults.loss)) {
        log(index, false, to, datagram, "lost");
        return;
    }
    const int copies = happens(m_options.faults.duplicates) ? 2 : 1;
    for (int i = 0; i < copies; ++i) {
        Outgoing outgoing{index, to, datagram};
        if (m_options.faults.delay.count() == 0)
            sendNow(outgoing);
        else
            m_due.emplace(present() + m_options.faults.delay,
                [this, outgoing = std::move(outgoing)] { sendNow(outgoing); });
    }
}

void LampNetwork::sendNow(const Outgoing& outgoing)
{
    const Station& station = m_stations[outgoing.station];
    if (station.silent)
        return;
    log(outgoing.station, false, outgoing.to, outgoing.datagram, {});
    ::sendto(station.socket, outgoing.datagram.data(), outgoing.datagram.size(), 0,
        reinterpret_cast<const sockaddr*>(&outgoing.to), sizeof outgoing.to);
}

void LampNetwork::runDue()
{
    while (!m_due.empty() && m_due.begin()->first <= present()) {
        const auto due = m_due.extract(m_due.begin());
        due.mapped()();
    }
}

void LampNetwork::log(std::size_t index, bool incoming, const sockaddr_in& peer, ByteView datagram,
    std::string_view note)
{
    if (!m_options.log)
        return;
    const VirtualLamp& lamp = *m_stations[index].lamp;
    m_options.log(
        jsonLine({incoming, lamp.label, hexText(lamp.mac()), peerText(peer), datagram, note}));
}

bool LampNetwork::happens(double chance)
{
    return chance > 0 && std::uniform_real_distribution<double>(0, 1)(m_random) < chance;
}

} // namespace virtual_lamps
