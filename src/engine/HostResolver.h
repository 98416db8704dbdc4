#pragma once

#include "engine/UdpSocket.h"

#include <memory>

namespace lumeroom {

/// The address in an IP literal, IPv4 or IPv6; nothing for a host name.
std::optional<SocketAddress> addressFromLiteral(const std::string& host, std::uint16_t port);

/// Looks host names up in the background, each once at a time and a few side by side. Answers are
/// remembered for a minute, failures too, so that one dead name does not hold up every poll.
class HostResolver {
public:
    /// The address of a host; nothing if there is none. It may block.
    using Ask = std::function<std::optional<SocketAddress>(const std::string&, std::uint16_t)>;
    static Ask systemResolver();

    explicit HostResolver(Ask ask = systemResolver());
    /// Does not wait for look-ups under way; none calls back any more once this returns.
    ~HostResolver();
    HostResolver(const HostResolver&) = delete;
    HostResolver& operator=(const HostResolver&) = delete;

    struct Answer {
        std::optional<SocketAddress> address; ///< nothing: there is no such host
    };
    using Done = std::function<void(const Answer&)>;

    /// What is remembered of a name; nothing if it has to be looked up.
    std::optional<Answer> remembered(const std::string& host, std::uint16_t port) const;
    /// Starts a look-up, or shares the one under way. `done` is called from another thread; it must
    /// not call the resolver.
    void lookUp(const std::string& host, std::uint16_t port, Done done);

private:
    struct Desk;
    static void work(Desk& desk);

    std::shared_ptr<Desk> m_desk;
};

} // namespace lumeroom
