#include "engine/AsyncUdpSocket.h"

#include "base/Log.h"
#include "engine/HostResolver.h"
#include "support/ManualRunLoop.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <future>
#include <thread>

namespace lumeroom {

namespace {

/// A plain socket of the system's on a loopback address, to talk to.
class Peer {
public:
    explicit Peer(const std::string& host = "127.0.0.1")
        : m_address(*addressFromLiteral(host, 0))
        , m_socket(
              ::socket(AsyncUdpSocket::familyFromAddress(m_address), SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        auto* address = reinterpret_cast<sockaddr*>(m_address.bytes.data());
        socklen_t length = m_address.length;
        m_bound = ::bind(m_socket, address, length) == 0;
        ::getsockname(m_socket, address, &length);
        const timeval limit{5, 0};
        ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    }
    ~Peer() { ::close(m_socket); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    bool isBound() const { return m_bound; }
    std::uint16_t port() const { return AsyncUdpSocket::portFromAddress(m_address); }
    /// The next datagram, and who sent it; empty after five seconds.
    Datagram receive()
    {
        Datagram data(9216);
        m_lastLength = sizeof m_last;
        const ssize_t size = ::recvfrom(m_socket, data.data(), data.size(), 0,
            reinterpret_cast<sockaddr*>(&m_last), &m_lastLength);
        data.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return data;
    }
    void answer(const Datagram& data)
    {
        ::sendto(m_socket, data.data(), data.size(), 0, reinterpret_cast<sockaddr*>(&m_last),
            m_lastLength);
    }

private:
    SocketAddress m_address;
    int m_socket;
    bool m_bound = false;
    sockaddr_storage m_last{};
    socklen_t m_lastLength = 0;
};

struct Received : UdpSocketDelegate {
    void udpSocketDidReceiveData(
        UdpSocket&, std::span<const std::uint8_t> data, const SocketAddress& from) override
    {
        datagrams.emplace_back(data.begin(), data.end());
        last = from;
    }
    std::vector<Datagram> datagrams;
    SocketAddress last;
};

/// Counts what is posted, from whichever thread.
struct CountingLoop : ManualRunLoop {
    void post(std::function<void()> work) override
    {
        ManualRunLoop::post(std::move(work));
        ++posts;
    }
    std::atomic<int> posts = 0;
};

} // namespace

struct AsyncUdp : ::testing::Test {
    std::shared_ptr<UdpSocket> makeSocket() { return io.socketFactory()(received); }
    bool receivedAll(std::size_t count)
    {
        return loop.runUntil([&] { return received.datagrams.size() >= count; });
    }
    int linesWith(std::string_view text)
    {
        const std::lock_guard lock(linesMutex);
        int count = 0;
        for (const std::string& line : lines)
            count += line.find(text) != std::string::npos ? 1 : 0;
        return count;
    }

    std::mutex linesMutex;
    std::vector<std::string> lines;
    Log log{[this](std::string_view line) {
        const std::lock_guard lock(linesMutex);
        lines.emplace_back(line);
    }};
    CountingLoop loop;
    Received received;
    UdpIoThread io{loop, log};
};

TEST_F(AsyncUdp, repliesComeBackOnTheRunLoop)
{
    for (const std::string host : {"127.0.0.1", "::1"}) {
        Peer peer(host);
        if (!peer.isBound())
            continue; // this machine has no IPv6 loopback address
        const auto socket = makeSocket();
        EXPECT_TRUE(socket->beginReceiving()); // nothing sent, so nothing bound
        socket->sendDataToHost({}, host, peer.port()); // empty: not sent
        socket->sendDataToHost({1, 2, 3}, host, peer.port());
        EXPECT_EQ(peer.receive(), (Datagram{1, 2, 3}));
        peer.answer({4}); // waits in the system until it is wanted
        EXPECT_FALSE(socket->beginReceiving());
        EXPECT_FALSE(socket->beginReceiving());
        peer.answer({5, 6});
        ASSERT_TRUE(receivedAll(2));
        EXPECT_EQ(std::exchange(received.datagrams, {})[1], (Datagram{5, 6}));
        EXPECT_EQ(AsyncUdpSocket::hostFromAddress(received.last), host);
        EXPECT_EQ(AsyncUdpSocket::portFromAddress(received.last), peer.port());
    }
}

TEST_F(AsyncUdp, sendsLeaveInOrderAndWaitForNoOtherHostsName)
{
    Peer peer;
    std::promise<void> serverSpeaks;
    const auto spoken = serverSpeaks.get_future().share();
    UdpIoThread slow(loop, log, [spoken](const std::string&, std::uint16_t port) {
        spoken.wait();
        return addressFromLiteral("127.0.0.1", port);
    });
    const auto socket = slow.socketFactory()(received);
    socket->sendDataToHost({0}, "lamp", peer.port());
    for (std::uint8_t i = 1; i < 200; ++i)
        socket->sendDataToHost({i}, "127.0.0.1", peer.port());
    for (std::uint8_t i = 1; i < 200; ++i)
        ASSERT_EQ(peer.receive(), Datagram{i});
    serverSpeaks.set_value();
    EXPECT_EQ(peer.receive(), Datagram{0});
}

TEST_F(AsyncUdp, aMainThreadThatIsFarBehindLeavesTheRestToTheSystem)
{
    Peer peer;
    const auto socket = makeSocket();
    socket->sendDataToHost({1}, "127.0.0.1", peer.port());
    peer.receive();
    socket->beginReceiving();
    constexpr std::size_t kRound = 64;
    std::size_t sent = 0;
    const auto isReadSoon = [&](int before) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
        while (loop.posts == before && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        return loop.posts != before;
    };
    for (int before = -1; sent < 8192 && isReadSoon(std::exchange(before, loop.posts));) {
        for (std::size_t i = 0; i < kRound; ++i, ++sent)
            peer.answer({static_cast<std::uint8_t>(sent), static_cast<std::uint8_t>(sent / 256)});
    }
    EXPECT_LT(sent, 5000U); // of which the last round waits in the system
    EXPECT_GT(sent, 4000U);
    ASSERT_TRUE(receivedAll(sent));
    EXPECT_EQ(received.datagrams.back(),
        (Datagram{
            static_cast<std::uint8_t>(sent - 1), static_cast<std::uint8_t>((sent - 1) / 256)}));
}

TEST_F(AsyncUdp, nothingArrivesAfterCloseOrTheEnd)
{
    Peer peer;
    auto socket = makeSocket();
    auto other = makeSocket();
    for (const auto& each : {socket, other}) {
        each->sendDataToHost({1}, "127.0.0.1", peer.port());
        peer.receive();
        each->beginReceiving();
        peer.answer({2});
    }
    EXPECT_FALSE(socket->isClosed());
    socket->close();
    EXPECT_TRUE(socket->isClosed());
    EXPECT_EQ(socket->beginReceiving()->text, "Socket closed");
    socket->sendDataToHost({3}, "127.0.0.1", peer.port());
    other.reset();
    // A third one's datagram comes behind theirs.
    const auto third = makeSocket();
    third->sendDataToHost({4}, "127.0.0.1", peer.port());
    EXPECT_EQ(peer.receive(), Datagram{4});
    third->beginReceiving();
    peer.answer({5});
    ASSERT_TRUE(receivedAll(1));
    EXPECT_EQ(received.datagrams, std::vector<Datagram>{Datagram{5}});
}

TEST_F(AsyncUdp, aHostThatRefusesDoesNotEndTheListening)
{
    const std::uint16_t deadPort = Peer().port();
    Peer peer;
    const auto socket = makeSocket();
    socket->sendDataToHost({1}, "127.0.0.1", deadPort);
    socket->beginReceiving();
    socket->sendDataToHost({2}, "127.0.0.1", peer.port());
    EXPECT_EQ(peer.receive(), Datagram{2});
    peer.answer({3});
    EXPECT_TRUE(receivedAll(1));
}

TEST_F(AsyncUdp, failuresAreSaidOnce)
{
    Peer peer;
    const auto socket = makeSocket();
    for (int i = 0; i < 5; ++i)
        socket->sendDataToHost({1}, "127.255.255.255", peer.port()); // which needs leave
    EXPECT_EQ(linesWith("cannot send to 127.255.255.255"), 1);
    EXPECT_EQ(linesWith("works again"), 0);
    const std::string firewall = "The system's firewall does not let the program send.";
    EXPECT_EQ(io.complaints().latest(), firewall);
    io.complaints().hostIsUnknown("a.lamp");
    EXPECT_EQ(io.complaints().latest(), "There is no computer of the name a.lamp.");
    io.complaints().succeeded("a.lamp");
    EXPECT_EQ(io.complaints().latest(), firewall); // which still holds
    socket->enableBroadcast(true);
    socket->sendDataToHost({1}, "127.255.255.255", peer.port());
    EXPECT_EQ(linesWith("sending to 127.255.255.255 works again"), 1);
    EXPECT_EQ(io.complaints().latest(), "");
}

TEST(HostResolver, aNameIsAskedForOnceAndFewAtATimeAndNobodyWaits)
{
    std::promise<void> serverSpeaks;
    const auto spoken = serverSpeaks.get_future().share();
    const auto asked = std::make_shared<std::atomic<int>>(0);
    const auto ask = [spoken, asked](const std::string&, std::uint16_t port) {
        ++*asked;
        spoken.wait();
        return addressFromLiteral("127.0.0.1", port);
    };
    std::atomic<int> answers = 0;
    const auto count
        = [&](const HostResolver::Answer& answer) { answers += answer.address ? 1 : 0; };
    std::atomic<int> late = 0;
    {
        HostResolver dropped(ask);
        dropped.lookUp("lamp", 7, [&](const auto&) { ++late; });
        while (*asked == 0)
            std::this_thread::yield();
    } // returns, though the server is silent
    const auto threads
        = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}); };
    HostResolver resolver(ask);
    const auto before = threads();
    for (int i = 0; i < 100; ++i)
        resolver.lookUp("lamp" + std::to_string(i % 10), 7, count);
    EXPECT_LE(threads(), before + 4);
    EXPECT_FALSE(resolver.remembered("lamp0", 7));
    serverSpeaks.set_value();
    while (answers < 100)
        std::this_thread::yield();
    EXPECT_LE(*asked, 11);
    EXPECT_TRUE(resolver.remembered("lamp9", 7));
    while (threads() >= before)
        std::this_thread::yield();
    EXPECT_EQ(late, 0);
}

} // namespace lumeroom
