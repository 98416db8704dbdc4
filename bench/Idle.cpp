#include "support/EngineHarness.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>

/// What an engine holds on to while nothing happens but polling: the heap in use after an hour with
/// answering lamps, beside that after the two minutes in which every lamp becomes known.
namespace lumeroom::bench {

namespace {

constexpr Seconds kStep(0.1); // the pace of the send queue
constexpr double kAcquaintanceSeconds = 120;
constexpr unsigned kZones = 16;

double heapInUse()
{
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// An engine whose sockets lead to lamps, each of which answers every question put to it.
class IdleEngine {
public:
    explicit IdleEngine(unsigned lamps)
        : m_lamps(lamps)
    {
        std::string addresses;
        for (unsigned n = 1; n <= lamps; ++n)
            addresses += test::lampAddress(n) + " ";
        m_defaults.setObject("manualIPAddresses", addresses);
        m_engine.setDelegate(&m_delegate);
        m_engine.startHeartbeat();
    }

    void pass(Seconds time)
    {
        for (Seconds passed(0); passed < time; passed += kStep) {
            m_loop.advance(kStep);
            for (const test::SentDatagram& sent : m_sockets.take())
                answer(sent);
        }
    }
    std::size_t known() const
    {
        return static_cast<std::size_t>(std::ranges::count_if(m_engine.registry().lightsArray(),
            [](const auto& lamp) { return lamp->product && lamp->brightness && lamp->group; }));
    }
    std::size_t answers() const { return m_answers; }

private:
    void answer(const test::SentDatagram& sent)
    {
        const auto lamp
            = static_cast<unsigned>(std::stoul(sent.host.substr(sent.host.rfind('.') + 1)));
        const bool hasZones = lamp % 4 == 0;
        switch (sent.type()) {
        case 2:
            return reply(sent, test::stateService(lamp));
        case 26:
            return reply(sent, test::stateTags(lamp, 1));
        case 29:
            return reply(sent, test::stateTagLabels(lamp, 1, "Tag"));
        case 32:
            return reply(sent, test::stateVersion(lamp, hasZones ? 31 : 1));
        case 48:
            return reply(sent, test::stateGrouping(50, lamp, 1, "Home"));
        case 51:
            return reply(sent, test::stateGrouping(53, lamp, lamp % 3 + 1, "Room"));
        case 101: // each reading differs from the last, so that the delegate hears of all of them
            return reply(sent,
                test::lightState(lamp,
                    {.brightness = 257 * (static_cast<unsigned>(m_answers) % 256),
                        .label = "Lamp " + std::to_string(lamp)}));
        case 502:
            for (unsigned first = 0; first < kZones; first += 8)
                reply(sent, test::stateMultizone(lamp, kZones, first, 100));
            return;
        default:
            return;
        }
    }
    void reply(const test::SentDatagram& sent, const Datagram& datagram)
    {
        ++m_answers;
        m_engine.udpSocketDidReceiveData(
            *m_socket, datagram, test::socketAddress(sent.host, sent.port));
    }

    unsigned m_lamps;
    std::size_t m_answers = 0;
    Log m_log{[](std::string_view) {}};
    ManualRunLoop m_loop;
    RunLoopPacer m_pacer{m_loop};
    UserDefaults m_defaults;
    test::FakeArpTable m_arp;
    test::FakeSockets m_sockets;
    test::RecordingDelegate m_delegate;
    EngineRoom m_engine{{m_loop, m_pacer, m_defaults, m_log, m_sockets.factory(),
        [] { return test::EngineHarness::kProducts; }, m_arp}};
    std::shared_ptr<UdpSocket> m_socket{m_sockets.factory()(m_engine)};
};

/// The baseline, `seconds` of 0, is the noise of the measurement itself.
void heapAfterPolling(benchmark::State& state)
{
    const auto lamps = static_cast<unsigned>(state.range(0));
    const Seconds time(static_cast<double>(state.range(1)));
    for (auto _ : state) {
        state.PauseTiming();
        IdleEngine idle(lamps);
        const double empty = heapInUse();
        idle.pass(Seconds(kAcquaintanceSeconds));
        const double before = heapInUse();
        const std::size_t answers = idle.answers();
        state.ResumeTiming();
        idle.pass(time);
        state.PauseTiming();
        if (idle.known() != lamps)
            state.SkipWithError("not every lamp became known");
        state.counters["acquainted"] = before - empty;
        state.counters["grown"] = heapInUse() - before;
        state.counters["answers"] = static_cast<double>(idle.answers() - answers);
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(heapAfterPolling)
    ->ArgNames({"lamps", "seconds"})
    ->Args({20, 0})
    ->Args({20, 120})
    ->Args({20, 3600})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace lumeroom::bench

BENCHMARK_MAIN();
