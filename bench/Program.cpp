#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// The whole program with lamps made of software, beside a program with an empty window: from the
/// start of the process to its window on the screen, and the memory that it holds half a minute
/// later. Run it by program.sh.
namespace lumeroom::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Arguments = std::vector<std::string>;

template <typename T> using FromC = std::unique_ptr<T, decltype(&std::free)>;

/// A display that tells which windows come up on it.
class Display {
public:
    Display()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection) != 0)
            return;
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, screen->root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_connection);
    }
    ~Display() { xcb_disconnect(m_connection); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// False when the display is gone.
    bool waitForWindow()
    {
        for (;;) {
            const FromC<xcb_generic_event_t> event(xcb_wait_for_event(m_connection), std::free);
            if (!event)
                return false;
            if ((event->response_type & 0x7FU) == XCB_MAP_NOTIFY
                && reinterpret_cast<const xcb_map_notify_event_t&>(*event).override_redirect == 0)
                return true;
        }
    }
    /// Forgets what has come up so far.
    void drain()
    {
        while (FromC<xcb_generic_event_t>(xcb_poll_for_event(m_connection), std::free)) { }
    }

private:
    xcb_connection_t* m_connection;
};

/// A running program, which ends with this.
class Process {
public:
    explicit Process(const Arguments& arguments)
    {
        std::vector<char*> pointers;
        for (const std::string& argument : arguments)
            pointers.push_back(const_cast<char*>(argument.c_str()));
        pointers.push_back(nullptr);
        if (::posix_spawn(&m_id, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0)
            m_id = 0;
    }
    ~Process()
    {
        if (m_id == 0)
            return;
        ::kill(m_id, SIGTERM);
        ::waitpid(m_id, nullptr, 0);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// A sum that the system keeps about the process's memory, in megabytes.
    double megabytes(const std::string& file, const std::string& key) const
    {
        std::ifstream lines("/proc/" + std::to_string(m_id) + "/" + file);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(key + ":"))
                return std::stod(line.substr(key.size() + 1)) / 1024;
        }
        return 0;
    }

private:
    pid_t m_id = 0;
};

Arguments emptyWindow()
{
    return {EMPTY_WINDOW};
}

/// With settings of its own, and those kept from one start to the next.
Arguments lumeroom(int lamps)
{
    const auto settings = std::filesystem::temp_directory_path()
        / ("bench-" + std::to_string(::getpid()) + ".plist");
    return {LUMEROOM, "--demo", "--demo-lamps", std::to_string(lamps), "--defaults", settings};
}

void start(benchmark::State& state, const Arguments& arguments)
{
    Display display;
    for (auto _ : state) {
        display.drain();
        const auto begin = Clock::now();
        const Process process(arguments);
        if (!display.waitForWindow()) {
            state.SkipWithError("no display");
            break;
        }
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
    }
}

void memory(benchmark::State& state, const Arguments& arguments)
{
    constexpr std::chrono::seconds kSettled(30);
    for (auto _ : state) {
        const Process process(arguments);
        std::this_thread::sleep_for(kSettled);
        if (process.megabytes("status", "VmRSS") == 0)
            state.SkipWithError("the program has ended");
        state.counters["resident_MB"] = process.megabytes("status", "VmRSS");
        state.counters["peak_MB"] = process.megabytes("status", "VmHWM");
        state.counters["proportional_MB"] = process.megabytes("smaps_rollup", "Pss");
        state.counters["private_MB"] = process.megabytes("smaps_rollup", "Private_Clean")
            + process.megabytes("smaps_rollup", "Private_Dirty");
    }
}

void startOfEmptyWindow(benchmark::State& state)
{
    start(state, emptyWindow());
}

void startOfLumeroom(benchmark::State& state)
{
    start(state, lumeroom(8));
}

void memoryOfEmptyWindow(benchmark::State& state)
{
    memory(state, emptyWindow());
}

void memoryOfLumeroom(benchmark::State& state)
{
    memory(state, lumeroom(static_cast<int>(state.range(0))));
}

// One start at a time, so that --benchmark_enable_random_interleaving mixes the two.
void repeated(benchmark::internal::Benchmark* benchmark)
{
    benchmark->UseManualTime()->Iterations(1)->Repetitions(10)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(startOfEmptyWindow)->Apply(repeated);
BENCHMARK(startOfLumeroom)->Apply(repeated);
BENCHMARK(memoryOfEmptyWindow)->Iterations(1);
BENCHMARK(memoryOfLumeroom)->ArgName("lamps")->Arg(1)->Arg(50)->Iterations(1);

} // namespace lumeroom::bench

BENCHMARK_MAIN();
