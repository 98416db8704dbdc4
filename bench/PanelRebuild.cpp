#include "PanelOfLamps.h"

#include <QApplication>
#include <QScrollArea>

#include <benchmark/benchmark.h>

/// The panel built anew, down to the pixels: with its strips given out again, and from nothing;
/// beside as many plain widgets. The arguments are the theme and the number of strips.
namespace lumeroom::bench {

namespace {

void countStrips(benchmark::State& state, std::int64_t strips)
{
    state.counters["per_strip"] = benchmark::Counter(static_cast<double>(strips),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void rebuild(benchmark::State& state, bool recycling)
{
    const auto strips = static_cast<unsigned>(state.range(1));
    PanelOfLamps panel(static_cast<int>(state.range(0)), strips);
    PanelSetUp& setUp = panel.controller.panelSetUp();
    for (auto _ : state) {
        setUp.refreshSetUpUsingRecycling(recycling);
        QCoreApplication::processEvents();
    }
    if (setUp.collection().strips().size() != strips)
        state.SkipWithError("strips are missing");
    countStrips(state, strips);
}

void recycled(benchmark::State& state)
{
    rebuild(state, true);
}

void cold(benchmark::State& state)
{
    rebuild(state, false);
}

/// Without layouts, pictures, names and meaning. In a window of the panel's first size, as rows of
/// the second layout's.
void plainWidgets(benchmark::State& state)
{
    constexpr int kChildren = 16; // what a strip has
    constexpr QSize kRow(920, 64);
    const auto rows = static_cast<int>(state.range(0));
    QScrollArea window;
    window.resize(1065, 560);
    window.show();
    for (auto _ : state) {
        auto* content = new QWidget;
        for (int row = 0; row < rows; ++row) {
            auto* parent = new QWidget(content);
            parent->setGeometry({{0, kRow.height() * row}, kRow});
            for (int child = 0; child < kChildren; ++child)
                (new QWidget(parent))->setGeometry(57 * child, 0, 50, 40);
        }
        content->resize(kRow.width(), kRow.height() * rows);
        window.setWidget(content);
        QCoreApplication::processEvents();
    }
    countStrips(state, rows);
}

void everyThemeAndSize(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgNames({"theme", "strips"})
        ->ArgsProduct({benchmark::CreateDenseRange(0, theme::kCount - 1, 1), {50, 100, 200, 400}})
        ->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(plainWidgets)
    ->ArgName("rows")
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(recycled)->Apply(everyThemeAndSize);
BENCHMARK(cold)->Apply(everyThemeAndSize);

} // namespace lumeroom::bench

int main(int argc, char** argv)
{
    return lumeroom::bench::runBenchmarks(argc, argv);
}
