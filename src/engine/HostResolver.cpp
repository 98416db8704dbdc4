#include "engine/HostResolver.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace lumeroom {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kRememberFor = std::chrono::seconds(60);
constexpr std::size_t kMostNames = 1000;
constexpr int kMostThreads = 4; // a name server that is silent keeps each for seconds

SocketAddress fromSystem(const sockaddr* address, socklen_t length)
{
    SocketAddress result;
    result.length = static_cast<std::uint8_t>(std::min<std::size_t>(length, result.bytes.size()));
    std::memcpy(result.bytes.data(), address, result.length);
    return result;
}

/// `flags` as getaddrinfo takes them.
std::optional<SocketAddress> addressFromSystem(
    const std::string& host, std::uint16_t port, int flags)
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
    // this one also reads scopes such as %eth0
    return addressFromSystem(host, port, AI_NUMERICHOST);
}

/// What the resolver shares with its threads. They outlive it: a look-up cannot be broken off, may
/// take as long as the name servers like, and nobody waits for it.
struct HostResolver::Desk {
    using Name = std::pair<std::string, std::uint16_t>;
    struct Entry {
        Answer answer;
        Clock::time_point until; ///< when to forget it; long past while there is no answer yet
        std::vector<Done> waiting;
    };

    explicit Desk(Ask question)
        : ask(std::move(question))
    {
    }
    void forgetSome();

    const Ask ask;
    std::mutex mutex;
    bool closed = false;
    int threads = 0;
    std::deque<Name> toDo;
    std::map<Name, Entry> entries;
};

/// Forgets what can be asked again, so that the names do not fill the memory.
void HostResolver::Desk::forgetSome()
{
    if (entries.size() >= kMostNames)
        std::erase_if(entries, [](const auto& entry) { return entry.second.waiting.empty(); });
}

HostResolver::Ask HostResolver::systemResolver()
{
    return [](const std::string& host, std::uint16_t port) {
        return addressFromSystem(host, port, 0);
    };
}

HostResolver::HostResolver(Ask ask)
    : m_desk(std::make_shared<Desk>(std::move(ask)))
{
}

HostResolver::~HostResolver()
{
    const std::lock_guard lock(m_desk->mutex);
    m_desk->closed = true;
}

std::optional<HostResolver::Answer> HostResolver::remembered(
    const std::string& host, std::uint16_t port) const
{
    const std::lock_guard lock(m_desk->mutex);
    const auto found = m_desk->entries.find({host, port});
    if (found == m_desk->entries.end() || found->second.until < Clock::now())
        return {};
    return found->second.answer;
}

void HostResolver::lookUp(const std::string& host, std::uint16_t port, Done done)
{
    const std::lock_guard lock(m_desk->mutex);
    m_desk->forgetSome();
    const Desk::Name name{host, port};
    auto& waiting = m_desk->entries[name].waiting;
    waiting.push_back(std::move(done));
    if (waiting.size() > 1)
        return; // asked for already
    m_desk->toDo.push_back(name);
    if (m_desk->threads < kMostThreads) {
        ++m_desk->threads;
        std::thread([desk = m_desk] { work(*desk); }).detach();
    }
}

void HostResolver::work(Desk& desk)
{
    std::unique_lock lock(desk.mutex);
    while (!desk.closed && !desk.toDo.empty()) {
        const Desk::Name name = std::move(desk.toDo.front());
        desk.toDo.pop_front();
        lock.unlock();
        const Answer answer{desk.ask(name.first, name.second)};
        lock.lock();
        if (desk.closed)
            break;
        Desk::Entry& entry = desk.entries[name];
        entry.answer = answer;
        entry.until = Clock::now() + kRememberFor;
        // While locked: who asked may be gone as soon as the resolver is.
        for (const Done& done : std::exchange(entry.waiting, {}))
            done(answer);
    }
    --desk.threads;
}

} // namespace lumeroom
