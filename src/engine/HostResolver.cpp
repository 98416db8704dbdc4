#include "engine/HostResolver.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>
#include <thread>

namespace lumeroom {

namespace {

constexpr auto kRememberFor = std::chrono::seconds(60);
constexpr std::size_t kMostNames = 1000;

SocketAddress fromSystem(const sockaddr* address, socklen_t length)
{
    SocketAddress result;
    result.length = static_cast<std::uint8_t>(std::min<std::size_t>(length, result.bytes.size()));
    std::memcpy(result.bytes.data(), address, result.length);
    return result;
}

/// `flags` as getaddrinfo takes them.
std::optional<SocketAddress> ask(const std::string& host, std::uint16_t port, int flags)
{
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_DGRAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        return {};
    const auto address = fromSystem(found->ai_addr, found->ai_addrlen);
    ::freeaddrinfo(found);
    return address;
}

} // namespace

std::optional<SocketAddress> addressFromLiteral(const std::string& host, std::uint16_t port)
{
    sockaddr_in address{};
    if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) == 1) {
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        return fromSystem(reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
    if (host.find(':') == std::string::npos)
        return {};
    return ask(host, port, AI_NUMERICHOST); // this one also reads scopes such as %eth0
}

HostResolver::HostResolver()
    : m_memory(std::make_shared<Memory>())
{
}

HostResolver::~HostResolver()
{
    const std::lock_guard lock(m_memory->mutex);
    m_memory->closed = true;
}

std::optional<HostResolver::Answer> HostResolver::remembered(
    const std::string& host, std::uint16_t port)
{
    const std::lock_guard lock(m_memory->mutex);
    const auto found = m_memory->entries.find({host, port});
    if (found == m_memory->entries.end() || found->second.until < std::chrono::steady_clock::now())
        return {};
    return found->second.answer;
}

void HostResolver::lookUp(
    const std::string& host, std::uint16_t port, std::function<void(Answer)> done)
{
    // A look-up cannot be broken off and may take as long as the name servers like, so nobody
    // waits for this thread; what it touches it owns.
    std::thread([memory = m_memory, host, port, done = std::move(done)] {
        const Answer answer{ask(host, port, 0)};
        const std::lock_guard lock(memory->mutex);
        if (memory->closed)
            return;
        if (memory->entries.size() >= kMostNames)
            memory->entries.clear();
        memory->entries[{host, port}] = {answer, std::chrono::steady_clock::now() + kRememberFor};
        done(answer); // while locked: who asked may be gone as soon as the resolver is
    }).detach();
}

} // namespace lumeroom
