#include "Baseline.h"
#include "PanelOfLamps.h"

#include "engine/UdpIoThread.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>

/// How long the window is deaf while every lamp reports a change at once, with the strips of their
/// groups in view too: the longest gap between
/// two turns of Qt's event loop, from the first datagram until all that it caused is painted;
/// beside the longest gap while nothing happens.
namespace lumeroom::bench {

namespace {

constexpr int kWatchedMilliseconds = 300;

/// The main thread's own time, which other programs do not lengthen.
double threadMilliseconds()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The gaps between the ticks of a timer that is always due.
class Gaps {
public:
    Gaps()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
        m_clock.start();
        m_timer.start(0);
    }
    double longest() const { return m_longest; }
    double longestOwn() const { return m_longestOwn; }
    bool isOver() const { return m_clock.elapsed() > kWatchedMilliseconds; }

private:
    void tick()
    {
        const double now = static_cast<double>(m_clock.nsecsElapsed()) / 1e6;
        const double own = threadMilliseconds();
        m_longest = std::max(m_longest, now - m_last);
        m_longestOwn = std::max(m_longestOwn, own - m_lastOwn);
        m_last = now;
        m_lastOwn = own;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_last = 0;
    double m_lastOwn = threadMilliseconds();
    double m_longest = 0;
    double m_longestOwn = 0;
};

/// Lets real datagrams in to the engine; the port is the system's choice.
struct WayIn {
    explicit WayIn(PanelOfLamps& panel)
        : io(panel.loop, panel.log)
        , socket(io.socketFactory()(panel.engine))
    {
        // Who is sent to knows the port.
        socket->sendDataToHost({1}, "127.0.0.1", ntohs(lamps.address().sin_port));
        socket->beginReceiving();
        std::uint8_t byte = 0;
        socklen_t length = sizeof port;
        ::recvfrom(lamps.descriptor(), &byte, 1, 0, reinterpret_cast<sockaddr*>(&port), &length);
    }
    PlainSocket lamps;
    UdpIoThread io;
    std::shared_ptr<UdpSocket> socket;
    sockaddr_in port{};
};

void longestPause(benchmark::State& state)
{
    const int theme = static_cast<int>(state.range(0));
    const auto lamps = static_cast<unsigned>(state.range(1));
    const auto reports = static_cast<unsigned>(state.range(2));
    PanelOfLamps panel(theme, lamps);
    panel.controller.panelSetUp().navigation().model().groups.press();
    panel.controller.panelSetUp().navigation().model().all.press();
    QCoreApplication::processEvents();
    const auto strips = panel.controller.panelSetUp().collection().strips().size();
    panel.window.resize(panel.window.maximumSize().boundedTo({1800, 1000}));
    if (strips != lamps + lamps / kLampsPerGroup + 1)
        state.SkipWithError("strips are missing");
    WayIn way(panel);
    QCoreApplication::processEvents();
    double most = 0;
    std::vector<double> own;
    unsigned turn = 0;
    for (auto _ : state) {
        ++turn;
        const Gaps gaps;
        for (unsigned lamp = 0; lamp < reports; ++lamp)
            way.lamps.sendTo(way.port, stateOf(lamp, turn));
        while (!gaps.isOver())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        for (unsigned lamp = 0; lamp < reports; ++lamp) {
            const auto record = panel.engine.registry().lightsArray()[lamp];
            if (record->onoff != (turn % 2 == 0))
                state.SkipWithError("reports were lost");
        }
        state.SetIterationTime(gaps.longest() / 1e3);
        most = std::max(most, gaps.longest());
        own.push_back(gaps.longestOwn());
    }
    std::sort(own.begin(), own.end());
    state.counters["most_ms"] = most;
    state.counters["own_ms_median"] = own[own.size() / 2];
    state.counters["own_ms_most"] = own.back();
}

} // namespace

BENCHMARK(longestPause)
    ->ArgNames({"theme", "lamps", "reports"})
    ->ArgsProduct({benchmark::CreateDenseRange(0, theme::kCount - 1, 1), {200}, {0, 200}})
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

} // namespace lumeroom::bench

int main(int argc, char** argv)
{
    return lumeroom::bench::runBenchmarks(argc, argv);
}
