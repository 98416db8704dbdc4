#pragma once

#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "desktop/QtRunLoop.h"
#include "engine/EngineRoom.h"
#include "support/FakeSockets.h"
#include "support/LampReplies.h"
#include "support/ManualRunLoop.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace lumeroom::bench {

/// The display that shows nothing says at every change of size that it keeps no limits.
inline void tellAllButOfSizeHints(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1StringView("This plugin does not support propagateSizeHints")))
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

inline int runBenchmarks(int argc, char** argv)
{
    qInstallMessageHandler(tellAllButOfSizeHints);
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

/// A datagram of the n-th lamp, which may be beyond the 255th.
inline Datagram ofLamp(unsigned lamp, Datagram datagram)
{
    datagram[13] = static_cast<std::uint8_t>(lamp);
    datagram[12] = static_cast<std::uint8_t>(lamp >> 8U);
    return datagram;
}

/// The state of the n-th lamp; `turn` makes each of its reports differ from the one before.
inline Datagram stateOf(unsigned lamp, unsigned turn)
{
    return ofLamp(lamp,
        test::lightState(0,
            {.hue = (turn * 7919 + lamp * 300) % 65536,
                .saturation = (turn * 5000) % 65536,
                .brightness = 65535 - (turn * 3000) % 50000,
                .power = turn % 2 == 0 ? 65535U : 0U,
                .label = "Lamp " + std::to_string(lamp)}));
}

constexpr unsigned kLampsPerGroup = 10;

/// The panel's window on the screen, with a strip for each lamp. All lamps are in groups and in one
/// location. What the engine sends is dropped.
struct PanelOfLamps {
    PanelOfLamps(int theme, unsigned lamps)
    {
        defaults.setObject(keys::kCurrentTheme, theme);
        const auto socket = sockets.factory()(engine);
        for (unsigned n = 0; n < lamps; ++n) {
            const auto from = test::socketAddress(
                "127.1." + std::to_string(n / 250) + "." + std::to_string(n % 250 + 1), 56700);
            engine.udpSocketDidReceiveData(*socket, ofLamp(n, test::stateService(0)), from);
            const auto& lamp = engine.registry().lightsArray().back();
            engine.udpSocketDidReceiveData(*lamp->socket, stateOf(n, 0), from); // it answers
            const unsigned room = n / kLampsPerGroup + 1;
            engine.udpSocketDidReceiveData(*socket,
                ofLamp(n, test::stateGrouping(53, 0, room, "Room " + std::to_string(room))), from);
            engine.udpSocketDidReceiveData(
                *socket, ofLamp(n, test::stateGrouping(50, 0, 255, "Home")), from);
        }
        controller.awakeFromNib();
        window.show();
        controller.applicationDidFinishLaunching();
        controller.applicationShouldTerminate(); // the order of the strips is known from now on
        QCoreApplication::processEvents();
    }

    Log log{[](std::string_view) {}};
    QtRunLoop loop;
    RunLoopPacer pacer{loop};
    UserDefaults defaults;
    test::NoArpTable arp;
    test::FakeSockets sockets;
    EngineRoom engine{{loop, pacer, defaults, log, sockets.factory(), {}, arp}};
    ControlPanelWindow window;
    ManualController controller{loop, defaults, log, engine, window};
};

} // namespace lumeroom::bench
