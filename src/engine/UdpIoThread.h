#pragma once

#include "engine/HostResolver.h"
#include "engine/NetworkComplaints.h"

#include <map>
#include <mutex>
#include <thread>

namespace lumeroom {

class AsyncUdpSocket;
class Log;
class RunLoop;

/// One thread that waits for input and for room to send on behalf of every socket. The sockets go
/// before it does.
class UdpIoThread {
public:
    UdpIoThread(RunLoop& runLoop, Log& log, HostResolver::Ask ask = HostResolver::systemResolver());
    ~UdpIoThread();
    UdpIoThread(const UdpIoThread&) = delete;
    UdpIoThread& operator=(const UdpIoThread&) = delete;

    /// Makes sockets that deliver on the run loop.
    SocketFactory socketFactory();

    // For the sockets
    using Key = std::uint64_t;
    Key add(std::weak_ptr<AsyncUdpSocket> socket);
    void remove(Key key);
    /// Starts, or changes, the watch on a descriptor. `events` as epoll names them.
    void watch(Key key, int descriptor, std::uint32_t events);
    RunLoop& runLoop() { return m_runLoop; }
    NetworkComplaints& complaints() { return m_complaints; }
    HostResolver& resolver() { return *m_resolver; }

private:
    void run();
    std::shared_ptr<AsyncUdpSocket> socketFor(Key key);

    RunLoop& m_runLoop;
    NetworkComplaints m_complaints;
    std::unique_ptr<HostResolver> m_resolver;
    int m_epoll;
    int m_wake;
    std::mutex m_mutex;
    Key m_nextKey = 1;
    std::map<Key, std::weak_ptr<AsyncUdpSocket>> m_sockets;
    std::thread m_thread;
};

} // namespace lumeroom
