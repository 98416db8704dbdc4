#include "Baseline.h"

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/AsyncUdpSocket.h"
#include "engine/DatagramReader.h"
#include "engine/EngineRoom.h"
#include "support/FakeSockets.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

#include <benchmark/benchmark.h>
#include <poll.h>

/// LIGHT_STATE datagrams in bursts: a bare recvmmsg loop, and the way through socket, dispatcher
/// and records.
namespace lumeroom::bench {

namespace {

constexpr std::size_t kBurst = 1000;

/// The state of the n-th lamp; `turn` makes each burst differ from the one before.
Datagram stateOf(unsigned lamp, unsigned turn)
{
    Datagram datagram = test::lightState(0, {.hue = turn, .label = "Lamp"});
    datagram[13] = static_cast<std::uint8_t>(lamp);
    datagram[12] = static_cast<std::uint8_t>(lamp >> 8U);
    return datagram;
}

std::vector<Datagram> burst(unsigned lamps, unsigned turn)
{
    std::vector<Datagram> datagrams;
    for (unsigned i = 0; i < kBurst; ++i)
        datagrams.push_back(stateOf(i % lamps, turn));
    return datagrams;
}

struct Receiving {
    explicit Receiving(unsigned lamps)
    {
        const auto socket = io.socketFactory()(engine);
        for (unsigned n = 0; n < lamps; ++n) {
            Datagram service = test::stateService(0);
            service[13] = static_cast<std::uint8_t>(n);
            service[12] = static_cast<std::uint8_t>(n >> 8U);
            const std::string address
                = "127.1." + std::to_string(n / 250) + "." + std::to_string(n % 250 + 1);
            const SocketAddress from = test::socketAddress(address, 56700);
            engine.udpSocketDidReceiveData(*socket, service, from);
            const auto& lamp = engine.registry().lightsArray().back();
            engine.udpSocketDidReceiveData(*lamp->socket, stateOf(n, 0), from); // one that answers
        }
    }

    Log log{[](std::string_view) {}};
    ManualRunLoop loop;
    RunLoopPacer pacer{loop};
    UserDefaults defaults;
    test::NoArpTable arp;
    UdpIoThread io{loop, log};
    EngineRoom engine{{loop, pacer, defaults, log, io.socketFactory(), {}, arp}};
};

/// Passes datagrams on to the engine and counts them.
struct Counter : UdpSocketDelegate {
    explicit Counter(EngineRoom& to)
        : engine(to)
    {
    }
    void udpSocketDidReceiveData(
        UdpSocket& socket, std::span<const std::uint8_t> data, const SocketAddress& from) override
    {
        ++count;
        engine.udpSocketDidReceiveData(socket, data, from);
    }
    EngineRoom& engine;
    std::size_t count = 0;
};

void bareRecvmmsg(benchmark::State& state)
{
    const PlainSocket sender;
    const PlainSocket target;
    DatagramReader reader;
    unsigned turn = 0;
    for (auto _ : state) {
        const auto datagrams = burst(10, ++turn);
        const auto start = std::chrono::steady_clock::now();
        for (const Datagram& datagram : datagrams)
            sender.sendTo(target.address(), datagram);
        for (std::size_t got = 0; got < kBurst;) {
            pollfd waiting{target.descriptor(), POLLIN, 0};
            ::poll(&waiting, 1, -1);
            got += reader.read(target.descriptor()).batch.entries.size();
        }
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kBurst));
}

void throughSocketAndDispatcher(benchmark::State& state)
{
    const auto lamps = static_cast<unsigned>(state.range(0));
    Receiving receiving(lamps);
    Counter counter(receiving.engine);
    const PlainSocket sender;
    const auto socket = receiving.io.socketFactory()(counter);
    // The socket's port is known to whom it sends.
    socket->sendDataToHost({1}, "127.0.0.1", ntohs(sender.address().sin_port));
    socket->beginReceiving();
    std::uint8_t byte = 0;
    sockaddr_in port{};
    socklen_t length = sizeof port;
    ::recvfrom(sender.descriptor(), &byte, 1, 0, reinterpret_cast<sockaddr*>(&port), &length);
    unsigned turn = 0;
    for (auto _ : state) {
        const auto datagrams = burst(lamps, ++turn);
        counter.count = 0;
        const auto start = std::chrono::steady_clock::now();
        for (const Datagram& datagram : datagrams)
            sender.sendTo(port, datagram);
        receiving.loop.runUntil([&] { return counter.count == kBurst; });
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (counter.count != kBurst)
            state.SkipWithError("datagrams were lost");
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kBurst));
}

/// The dispatcher and the records alone, without the network's own cost.
void dispatch(benchmark::State& state)
{
    const auto lamps = static_cast<unsigned>(state.range(0));
    Receiving receiving(lamps);
    const auto socket = receiving.io.socketFactory()(receiving.engine);
    const SocketAddress from = test::socketAddress("127.0.0.1", 56700);
    unsigned turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto datagrams = burst(lamps, ++turn);
        state.ResumeTiming();
        for (const Datagram& datagram : datagrams)
            receiving.engine.udpSocketDidReceiveData(*socket, datagram, from);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kBurst));
}

} // namespace

BENCHMARK(bareRecvmmsg)->UseManualTime();
BENCHMARK(throughSocketAndDispatcher)->Arg(10)->Arg(1000)->UseManualTime();
BENCHMARK(dispatch)->Arg(10)->Arg(1000);

} // namespace lumeroom::bench

BENCHMARK_MAIN();
