#include "Baseline.h"

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/AsyncUdpSocket.h"
#include "engine/EngineRoom.h"
#include "support/FakeSockets.h"
#include "support/ManualRunLoop.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <thread>

/// From the call to the datagram's arrival in another thread: a bare sendto, and a lamp command.
namespace lumeroom::bench {

namespace {

using Clock = std::chrono::steady_clock;

/// Notes when each datagram arrives on a socket.
class Receiver {
public:
    explicit Receiver(int descriptor)
        : m_thread([this, descriptor] {
            std::uint8_t buffer[2048];
            while (::recv(descriptor, buffer, sizeof buffer, 0) > 1)
                m_arrived.store(Clock::now().time_since_epoch().count(), std::memory_order_release);
        })
    {
    }
    /// A datagram of one byte has ended the thread by then.
    ~Receiver() { m_thread.join(); }

    /// Seconds from `start` to the next arrival.
    double waitFrom(Clock::time_point start)
    {
        Clock::rep arrived = 0;
        while ((arrived = m_arrived.exchange(0, std::memory_order_acquire)) == 0)
            std::this_thread::yield();
        const Clock::duration took = Clock::duration(arrived) - start.time_since_epoch();
        return std::chrono::duration<double>(took).count();
    }

private:
    std::atomic<Clock::rep> m_arrived = 0;
    std::thread m_thread;
};

/// An engine with one lamp at 127.0.83.1, on which a plain socket listens.
struct EngineWithLamp {
    EngineWithLamp()
    {
        lampSocket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        address.sin_family = AF_INET;
        address.sin_port = htons(56700);
        ::inet_pton(AF_INET, "127.0.83.1", &address.sin_addr);
        bound = ::bind(lampSocket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        std::vector<std::uint8_t> service(41);
        service[32] = 3;
        service[36] = 1;
        service[37] = 0x7C;
        service[38] = 0xDD;
        service[8] = 0xD0;
        SocketAddress from;
        std::memcpy(from.bytes.data(), &address, sizeof address);
        from.length = sizeof address;
        const auto socket = io.socketFactory()(engine);
        engine.udpSocketDidReceiveData(*socket, service, from);
    }
    ~EngineWithLamp() { ::close(lampSocket); }

    Log log{[](std::string_view) {}};
    ManualRunLoop loop;
    RunLoopPacer pacer{loop};
    UserDefaults defaults;
    test::NoArpTable arp;
    UdpIoThread io{loop, log};
    EngineRoom engine{{loop, pacer, defaults, log, io.socketFactory(), {}, arp}};
    sockaddr_in address{};
    int lampSocket = -1;
    bool bound = false;
};

const std::vector<std::uint8_t> kEnd{0};

void bareSendto(benchmark::State& state)
{
    const PlainSocket sender;
    const PlainSocket target;
    const std::vector<std::uint8_t> data(49);
    {
        Receiver receiver(target.descriptor());
        for (auto _ : state) {
            const auto start = Clock::now();
            sender.sendTo(target.address(), data);
            state.SetIterationTime(receiver.waitFrom(start));
        }
        sender.sendTo(target.address(), kEnd);
    }
}

void sendSettingsToLamp(benchmark::State& state)
{
    EngineWithLamp with;
    if (!with.bound) {
        state.SkipWithError("127.0.83.1 port 56700 is in use");
        return;
    }
    Settings settings;
    {
        Receiver receiver(with.lampSocket);
        int brightness = 0;
        for (auto _ : state) {
            settings.brightness = brightness++ % 256;
            const auto start = Clock::now();
            with.engine.commands().sendSettingsToLamp(settings, "d000000000000000");
            state.SetIterationTime(receiver.waitFrom(start));
        }
        PlainSocket().sendTo(with.address, kEnd);
    }
}

} // namespace

BENCHMARK(bareSendto)->UseManualTime()->Repetitions(21)->ReportAggregatesOnly();
BENCHMARK(sendSettingsToLamp)->UseManualTime()->Repetitions(21)->ReportAggregatesOnly();

} // namespace lumeroom::bench

BENCHMARK_MAIN();
