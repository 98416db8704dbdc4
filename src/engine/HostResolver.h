#pragma once

#include "engine/UdpSocket.h"

#include <chrono>
#include <map>
#include <mutex>

namespace lumeroom {

/// The address in an IP literal, IPv4 or IPv6; nothing for a host name.
std::optional<SocketAddress> addressFromLiteral(const std::string& host, std::uint16_t port);

/// Looks host names up in the background. Answers are remembered for a while, failures too, so
/// that one dead name does not hold up every poll.
class HostResolver {
public:
    HostResolver();
    /// No look-up calls back any more once this returns.
    ~HostResolver();
    HostResolver(const HostResolver&) = delete;
    HostResolver& operator=(const HostResolver&) = delete;

    struct Answer {
        std::optional<SocketAddress> address; ///< nothing: there is no such host
    };
    /// What is remembered of a name; nothing if it has to be looked up.
    std::optional<Answer> remembered(const std::string& host, std::uint16_t port);
    /// Starts a look-up. `done` is called from another thread; it must not call the resolver.
    void lookUp(const std::string& host, std::uint16_t port, std::function<void(Answer)> done);

private:
    struct Memory {
        struct Entry {
            Answer answer;
            std::chrono::steady_clock::time_point until;
        };
        std::mutex mutex;
        bool closed = false;
        std::map<std::pair<std::string, std::uint16_t>, Entry> entries;
    };
    std::shared_ptr<Memory> m_memory;
};

} // namespace lumeroom
