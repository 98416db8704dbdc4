#include "Baseline.h"

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/EngineRoom.h"
#include "engine/WireFormat.h"
#include "support/FakeSockets.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>

/// Heap allocations of a direct command, beside those of its datagram's buffer alone.
namespace {
std::size_t allocations = 0;
}

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace lumeroom::bench {

namespace {

struct SilentSocket : UdpSocket {
    std::optional<SocketError> enableBroadcast(bool) override { return {}; }
    void sendDataToHost(Datagram data, const std::string&, std::uint16_t) override
    {
        benchmark::DoNotOptimize(data.data());
    }
    std::optional<SocketError> beginReceiving() override { return {}; }
    void close() override { }
    bool isClosed() const override { return false; }
};

/// Runs `command` and reports its allocations per call.
template <typename Command> void count(benchmark::State& state, Command command)
{
    command();
    const std::size_t before = allocations;
    for (auto _ : state)
        command();
    state.counters["allocations"] = benchmark::Counter(
        static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

void theBufferAlone(benchmark::State& state)
{
    count(state, [] {
        Datagram data(49);
        benchmark::DoNotOptimize(data.data());
    });
}

void sendSettingsToLamp(benchmark::State& state)
{
    Log log([](std::string_view) {});
    ManualRunLoop loop;
    RunLoopPacer pacer(loop);
    UserDefaults defaults;
    test::NoArpTable arp;
    EngineRoom engine({loop, pacer, defaults, log,
        [](UdpSocketDelegate&) { return std::make_shared<SilentSocket>(); }, {}, arp});
    SilentSocket socket;
    engine.udpSocketDidReceiveData(
        socket, test::stateService(1), test::socketAddress("127.0.0.1", 56700));
    const std::string id = test::lampID(1);
    Settings settings;
    settings.brightness = 9;
    count(state, [&] { engine.commands().sendSettingsToLamp(settings, id); });
}

} // namespace

BENCHMARK(theBufferAlone);
BENCHMARK(sendSettingsToLamp);

} // namespace lumeroom::bench

BENCHMARK_MAIN();
