#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/Pacer.h"
#include "base/UserDefaults.h"
#include "desktop/QtRunLoop.h"
#include "engine/ArpTable.h"
#include "engine/EngineRoom.h"
#include "engine/UdpIoThread.h"
#include "strips/ui/ControlStripView.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SliderView.h"
#include "support/QtTestInput.h"

#include <virtual-lamps/LampFactory.h>
#include <virtual-lamps/LampNetwork.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace lumeroom {

using virtual_lamps::Hsbk;
using virtual_lamps::Time;
using virtual_lamps::VirtualLamp;

namespace {

struct NoArpTable : ArpTable {
    void read(std::function<void(Result)>) override { }
};

std::string products()
{
    std::ifstream file(LUMEROOM_SOURCE_DIR "/resources/products.json");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

/// The whole way, from the widget to the lamp and back, with real datagrams on loopback addresses.
struct PanelEndToEnd : ::testing::Test {
    PanelEndToEnd()
    {
        addLamp(1, 27, "Desk");
        addLamp(2, 10, "Ceiling");
        addLamp(3, 32, "Strip");
        std::string error;
        EXPECT_TRUE(network.start(error)) << error;
        std::string addresses;
        for (std::size_t i = 0; i < network.count(); ++i)
            addresses += network.address(i) + " ";
        defaults.setObject(keys::kManualIPAddresses, addresses);
        defaults.setObject(keys::kHeartbeatSpeed, 2.0);
        controller.awakeFromNib();
        panel.show();
        controller.applicationDidFinishLaunching();
    }

    void addLamp(unsigned number, std::uint32_t product, const std::string& label)
    {
        auto lamp = std::make_unique<VirtualLamp>(
            virtual_lamps::macAddressForNumber(number), virtual_lamps::productWithID(product), 16);
        lamp->label = label;
        lamp->setColour({1000, 65535, 40000, 3500}, Time());
        lamp->setPower(true, Time());
        std::string error;
        EXPECT_TRUE(network.add(std::move(lamp), "127.0.61." + std::to_string(number), error))
            << error;
    }
    template <typename F> auto onLamp(std::size_t index, F look)
    {
        decltype(look(std::declval<VirtualLamp&>(), Time())) result{};
        network.withLamp(index, [&](VirtualLamp& lamp, Time now) { result = look(lamp, now); });
        return result;
    }
    Hsbk colour(std::size_t index)
    {
        return onLamp(index, [](VirtualLamp& lamp, Time now) { return lamp.colour(now); });
    }
    /// The control with this role in the strip of this name, once both are there.
    template <typename View> View* control(const std::string& name, const QString& role)
    {
        for (auto* strip : panel.findChildren<ControlStripView*>()) {
            if (strip->strip()->label().text() != name)
                continue;
            for (View* view : strip->findChildren<View*>()) {
                if (view->property("role").toString() == role)
                    return view;
            }
        }
        return nullptr;
    }

    virtual_lamps::LampNetwork network{{}};
    QtRunLoop runLoop;
    ThreadPacer pacer;
    Log log{[](std::string_view) {}};
    UserDefaults defaults;
    NoArpTable arp;
    UdpIoThread io{runLoop, log};
    EngineRoom engine{{runLoop, pacer, defaults, log, io.socketFactory(), products, arp}};
    ControlPanelWindow panel;
    ManualController controller{runLoop, defaults, log, engine, panel};
};

TEST_F(PanelEndToEnd, theHandReachesTheLampAndTheLampTheHand)
{
    ASSERT_TRUE(test::workUntil([&] {
        const auto* white = control<SliderView>("Ceiling", "saturation");
        const auto strip = engine.lampWithID("d073d50000030000");
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
        const auto strip = engine.lampWithID("d073d50000030000");
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
    ASSERT_TRUE(
        test::workUntil([&] { return engine.lampWithID("d073d50000010000")->brightness == 255; }));
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
