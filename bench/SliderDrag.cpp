#include "PanelOfLamps.h"

#include "strips/ui/SliderView.h"
#include "support/QtTestInput.h"

#include <QApplication>
#include <QSlider>

#include <benchmark/benchmark.h>

/// One frame of a drag: the mouse moves, and all that follows from it is painted; beside the same
/// with a slider of the toolkit's own. The argument is the theme.
namespace lumeroom::bench {

namespace {

/// To and fro along the slider.
void drag(benchmark::State& state, QWidget& slider)
{
    const auto to = [&slider](QEvent::Type type, double part) {
        const QRectF all(slider.rect());
        test::mouseAt(slider, type,
            all.height() > all.width()
                ? QPointF(all.center().x(), all.bottom() - part * all.height())
                : QPointF(part * all.width(), all.center().y()));
    };
    to(QEvent::MouseButtonPress, 0.5);
    int step = 0;
    for (auto _ : state) {
        to(QEvent::MouseMove, 0.3 + 0.004 * (step++ % 100));
        QCoreApplication::processEvents();
    }
    to(QEvent::MouseButtonRelease, 0.5);
}

void strip(benchmark::State& state)
{
    PanelOfLamps panel(static_cast<int>(state.range(0)), 60);
    auto* slider = test::named<SliderView>(panel.window, "Lamp 0, brightness");
    if (!slider) {
        state.SkipWithError("there is no slider");
        return;
    }
    drag(state, *slider);
}

void plain(benchmark::State& state)
{
    QWidget window;
    window.resize(1065, 560);
    QSlider slider(Qt::Horizontal, &window);
    slider.setGeometry(400, 100, 200, 26);
    slider.setMaximum(255);
    slider.setValue(127); // under the mouse
    window.show();
    QCoreApplication::processEvents();
    drag(state, slider);
}

} // namespace

BENCHMARK(plain)->Unit(benchmark::kMillisecond);
BENCHMARK(strip)->ArgName("theme")->DenseRange(0, theme::kCount - 1)->Unit(benchmark::kMillisecond);

} // namespace lumeroom::bench

int main(int argc, char** argv)
{
    return lumeroom::bench::runBenchmarks(argc, argv);
}
