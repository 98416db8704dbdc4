#include "engine/UdpIoThread.h"

#include "engine/AsyncUdpSocket.h"
#include "engine/DatagramReader.h"

#include <pthread.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace lumeroom {

namespace {
constexpr UdpIoThread::Key kWakeKey = 0;
}

UdpIoThread::UdpIoThread(RunLoop& runLoop, Log& log, HostResolver::Ask ask)
    : m_runLoop(runLoop)
    , m_complaints(log)
    , m_resolver(std::make_unique<HostResolver>(std::move(ask)))
    , m_epoll(::epoll_create1(EPOLL_CLOEXEC))
    , m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_thread([this] { run(); })
{
}

UdpIoThread::~UdpIoThread()
{
    m_resolver.reset();
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(m_wake, &one, sizeof one);
    m_thread.join();
    ::close(m_wake);
    ::close(m_epoll);
}

SocketFactory UdpIoThread::socketFactory()
{
    return [this](UdpSocketDelegate& delegate) { return AsyncUdpSocket::make(delegate, *this); };
}

UdpIoThread::Key UdpIoThread::add(std::weak_ptr<AsyncUdpSocket> socket)
{
    const std::lock_guard lock(m_mutex);
    m_sockets.emplace(m_nextKey, std::move(socket));
    return m_nextKey++;
}

void UdpIoThread::remove(Key key)
{
    const std::lock_guard lock(m_mutex);
    m_sockets.erase(key);
}

void UdpIoThread::watch(Key key, int descriptor, std::uint32_t events)
{
    epoll_event event{};
    event.events = events;
    event.data.u64 = key;
    if (::epoll_ctl(m_epoll, EPOLL_CTL_MOD, descriptor, &event) != 0)
        ::epoll_ctl(m_epoll, EPOLL_CTL_ADD, descriptor, &event);
}

std::shared_ptr<AsyncUdpSocket> UdpIoThread::socketFor(Key key)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_sockets.find(key);
    return found == m_sockets.end() ? nullptr : found->second.lock();
}

void UdpIoThread::run()
{
    pthread_setname_np(pthread_self(), "udp i/o");
    DatagramReader reader;
    epoll_event wakeEvent{};
    wakeEvent.events = EPOLLIN;
    wakeEvent.data.u64 = kWakeKey;
    ::epoll_ctl(m_epoll, EPOLL_CTL_ADD, m_wake, &wakeEvent);
    std::array<epoll_event, 64> events;
    for (;;) {
        const int count = ::epoll_wait(m_epoll, events.data(), static_cast<int>(events.size()), -1);
        for (int i = 0; i < count; ++i) {
            const epoll_event& event = events[static_cast<std::size_t>(i)];
            if (event.data.u64 == kWakeKey)
                return;
            const auto socket = socketFor(event.data.u64);
            if (!socket)
                continue;
            if ((event.events & EPOLLOUT) != 0)
                socket->flushPending();
            if ((event.events & (EPOLLIN | EPOLLERR)) != 0)
                socket->readAvailable(reader);
        }
    }
}

} // namespace lumeroom
