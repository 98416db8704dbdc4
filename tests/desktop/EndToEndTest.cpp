#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SliderView.h"
#include "support/EngineAndLamps.h"
#include "support/EngineHarness.h"
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
        return test::named<View>(panel, QString::fromStdString(name) + ", " + role);
    }

    ControlPanelWindow panel;
    ManualController controller{runLoop, defaults, log, engine, panel};
};

TEST_F(PanelEndToEnd, theHandReachesTheLampAndTheLampTheHand)
{
    ASSERT_TRUE(test::workUntil([&] {
        const auto* white = control<SliderView>("Ceiling", "whiteness");
        const auto strip = engine.registry().lampWithID(lampID(3));
        return control<SliderView>("Desk", "brightness") && white && !white->isEnabled() && strip
            && strip->zones && strip->zones->size() == 16;
    }));

    auto* brightness = control<SliderView>("Desk", "brightness");
    test::dragTo(*brightness, 0.2);
    const int wanted = brightness->value() * 255;
    EXPECT_TRUE(test::workUntil([&] { return colour(0).brightness == wanted; }));
    test::dragTo(*control<SliderView>("Desk", "whiteness"), 1);
    test::dragTo(*control<SliderView>("Desk", "warmth"), 0);
    EXPECT_TRUE(
        test::workUntil([&] { return colour(0).saturation == 0 && colour(0).kelvin == 9000; }));
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
    const auto zone = [](VirtualLamp& lamp, Time now) { return lamp.zone(5, now); };
    EXPECT_TRUE(test::workUntil([&] { return onLamp(2, zone).brightness == 65025; }));
    EXPECT_EQ(onLamp(2, zone).hue, 9999);

    control<OnOffButtonView>("Ceiling", "power")->click();
    EXPECT_TRUE(test::workUntil([&] { return !isOn(1); }));
}

/// What lamps hold after the engine has changed a group, a location or a tag, and what they then
/// report.
struct GroupingsEndToEnd : test::EngineAndLamps {
    GroupingsEndToEnd()
    {
        engine.startHeartbeat();
        for (unsigned n = 1; n <= 3; ++n)
            EXPECT_TRUE(test::workUntil(
                [&] { return engine.registry().lampWithID(lampID(n)) != nullptr; }));
    }
    /// The three lamps come to hold this.
    template <typename F> void expectHeld(F look, const std::vector<std::string>& expected)
    {
        std::vector<std::string> held;
        EXPECT_TRUE(test::workUntil([&] {
            held.clear();
            for (std::size_t i = 0; i < network.count(); ++i)
                held.push_back(onLamp(i, [&](VirtualLamp& lamp, Time) { return look(lamp); }));
            return held == expected;
        })) << held.at(0)
            << "," << held.at(1) << "," << held.at(2);
    }

    test::Reference first{lampID(1)}, second{lampID(2)}, third{lampID(3)};
};

TEST_F(GroupingsEndToEnd, fromMakingToRemoval)
{
    const auto group = [](const VirtualLamp& lamp) { return lamp.group.label; };
    const auto location = [](const VirtualLamp& lamp) { return lamp.location.label; };
    const auto tags = [](const VirtualLamp& lamp) { return std::to_string(lamp.tags); };
    const auto tagLabel = [](const VirtualLamp& lamp) {
        const auto found = lamp.tagLabels.find(1);
        return found == lamp.tagLabels.end() ? std::string("-") : found->second;
    };
    const LampRegistry& registry = engine.registry();
    engine.groupings().makeGroupNamed({&first, &second}, "Study 書斎");
    engine.groupings().makeLocationNamed({&first, &third}, "House");
    engine.tags().makeTagNamed({&first, &second}, "Reading");
    expectHeld(group, {"Study 書斎", "Study 書斎", ""});
    expectHeld(location, {"House", "", "House"});
    expectHeld(tagLabel, {"Reading", "Reading", "-"});

    const auto study = registry.IDForGroupNamed("Study 書斎");
    const auto house = registry.IDForLocationNamed("House");
    ASSERT_TRUE(study && house);
    engine.groupings().editGroupLamps(*study, {&second, &third});
    engine.groupings().editLocationLamps(*house, {&second, &third});
    engine.tags().editTagLamps("Reading", {&third});
    expectHeld(group, {"", "Study 書斎", "Study 書斎"});
    expectHeld(location, {"", "House", "House"});
    expectHeld(tags, {"0", "0", "1"});

    engine.groupings().removeGroupWithID(*study);
    engine.tags().removeTag("Reading");
    expectHeld(group, {"", "", ""});
    expectHeld(tagLabel, {"-", "-", "-"});
}

} // namespace lumeroom
