#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "strips/ui/ControlStripView.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SliderView.h"
#include "support/EngineAndLamps.h"
#include "support/QtTestInput.h"

namespace lumeroom {

using test::Hsbk;
using test::Time;
using test::VirtualLamp;

/// The whole way, from the widget to the lamp and back, with real datagrams on loopback addresses.
struct PanelEndToEnd : test::EngineAndLamps {
    PanelEndToEnd()
    {
        controller.awakeFromNib();
        panel.show();
        controller.applicationDidFinishLaunching();
    }

    Hsbk colour(std::size_t index)
    {
        return onLamp(index, [](VirtualLamp& lamp, Time now) { return lamp.colour(now); });
    }
    /// The control with this role in the strip of this name, once both are there.
    template <typename View> View* control(const std::string& name, const QString& role)
    {
        for (View* view : panel.findChildren<View*>()) {
            if (view->accessibleName() == QString::fromStdString(name) + ", " + role)
                return view;
        }
        return nullptr;
    }

    ControlPanelWindow panel;
    ManualController controller{runLoop, defaults, log, engine, panel};
};

TEST_F(PanelEndToEnd, theHandReachesTheLampAndTheLampTheHand)
{
    ASSERT_TRUE(test::workUntil([&] {
        const auto* white = control<SliderView>("Ceiling", "saturation");
        const auto strip = engine.registry().lampWithID(lampID(3));
        return control<SliderView>("Desk", "brightness") && white && !white->isEnabled() && strip
            && strip->zones && strip->zones->size() == 16;
    }));

    // Sliders.
    auto* brightness = control<SliderView>("Desk", "brightness");
    test::dragTo(*brightness, 0.2);
    const int wanted = brightness->value() * 255;
    EXPECT_TRUE(test::workUntil([&] { return colour(0).brightness == wanted; }));
    test::dragTo(*control<SliderView>("Desk", "saturation"), 1);
    EXPECT_TRUE(test::workUntil([&] { return colour(0).saturation == 0; }));
    test::dragTo(*control<SliderView>("Desk", "warmth"), 0);
    EXPECT_TRUE(test::workUntil([&] { return colour(0).kelvin == 9000; }));
    EXPECT_EQ(colour(0).hue, 1000);

    // A zone keeps its own colour when the strip's brightness moves.
    network.withLamp(2, [](VirtualLamp& lamp, Time now) {
        lamp.setZone(5, {9999, 1, 1, 3000}, now);
    });
    ASSERT_TRUE(test::workUntil([&] {
        const auto strip = engine.registry().lampWithID(lampID(3));
        return strip->zonesInOrder().at(5).colour == 9999;
    }));
    test::dragTo(*control<SliderView>("Strip", "brightness"), 1);
    EXPECT_TRUE(test::workUntil([&] {
        return onLamp(2, [](VirtualLamp& lamp, Time now) { return lamp.zone(5, now); }).brightness
            == 65025;
    }));
    EXPECT_EQ(onLamp(2, [](VirtualLamp& lamp, Time now) { return lamp.zone(5, now); }).hue, 9999);

    // The button.
    control<OnOffButtonView>("Ceiling", "power")->click();
    EXPECT_TRUE(test::workUntil(
        [&] { return !onLamp(1, [](VirtualLamp& lamp, Time now) { return lamp.power(now); }); }));

    // A late report does not pull a touched slider away; once the embargo is over, it shows.
    const int shown = brightness->value();
    network.withLamp(0, [](VirtualLamp& lamp, Time now) {
        lamp.setColour({1000, 0, 65535, 3500}, now);
    });
    ASSERT_TRUE(test::workUntil(
        [&] { return engine.registry().lampWithID(lampID(1))->brightness == 255; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(brightness->value(), shown);
    EXPECT_TRUE(test::workUntil([&] {
        // Reports come with changes, so the lamp goes on changing.
        network.withLamp(0, [](VirtualLamp& lamp, Time now) {
            const auto hue = static_cast<std::uint16_t>(lamp.colour(now).hue + 1);
            lamp.setColour({hue, 0, 65535, 3500}, now);
        });
        return brightness->value() == 255;
    }));
}

} // namespace lumeroom
