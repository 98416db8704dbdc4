#include "ControllerHarness.h"

namespace lumeroom::test {

TEST_F(Controller, launchWaitsForLamps)
{
    defaults.setObject("verbosity", 3);
    launch();
    EXPECT_EQ(defaults.get(keys::kVerbosity), 1);
    EXPECT_EQ(panel.title, "Lumeroom manual control panel");
    EXPECT_TRUE(panel.throbbing);
    EXPECT_EQ(linesWith("No lights found, trying again in 1.5s"), 1);
    loop.advance(Seconds(3.1));
    EXPECT_EQ(linesWith("No lights found"), 3);
    EXPECT_EQ(sockets.takeOfType(2).size(), 2U); // the polling goes on meanwhile
    addNamed(1, "Desk");
    EXPECT_EQ(panel.builds, 0); // the next pass finds it, not the arrival
    loop.advance(Seconds(1.5));
    EXPECT_FALSE(panel.throbbing);
    EXPECT_EQ(panel.names(), Names{"Desk"});
    EXPECT_TRUE(panel.strip(0).onOffButton().state());
    loop.advance(Seconds(10));
    EXPECT_EQ(panel.builds, 1);
}

TEST_F(Controller, whatIsNotKnownOfALampLooksLikeIt)
{
    addNamed(1, "Desk");
    receive(stateService(2), lampAddress(2));
    launch();
    const auto strip = [&](unsigned n) {
        return controller.panelSetUp().collection().getStripWithID(lampID(n));
    };
    const auto caption = [&](unsigned n) { return strip(n)->caption().caption().text; };
    EXPECT_EQ(strip(2)->label().shownText(), "New lamp");
    EXPECT_EQ(strip(2)->label().text(), lampID(2));
    EXPECT_EQ(caption(2), "Waiting for the lamp");
    EXPECT_FALSE(strip(2)->brightnessSlider().isEnabled());
    navigation().all.press();
    const auto all = controller.panelSetUp().collection().getGroupStripWithID("0");
    EXPECT_EQ(all->caption().caption().text.substr(0, 9), "1 of 2 on");
    strip(1)->onOffButton().press();
    loop.runPosted(); // before any answer
    EXPECT_EQ(all->caption().caption().text, "Off");

    loop.advance(Seconds(30)); // neither answers
    EXPECT_EQ(caption(1), "Not answering");
    EXPECT_EQ(caption(2), "Not answering");
    EXPECT_TRUE(strip(1)->brightnessSlider().isEnabled());
    EXPECT_FALSE(strip(2)->brightnessSlider().isEnabled());
    receive(lightState(1, {.brightness = 65535, .label = "Desk"}), lampAddress(1));
    loop.advance(Seconds(10));
    EXPECT_NE(caption(1), "Not answering");
}

TEST_F(Controller, aBurstOfLampsIsOneRebuildThatKeepsTheStrips)
{
    addNamed(1, "One");
    launch();
    LampControlStrip* const first = &panel.strip(0);
    for (unsigned n = 2; n <= 10; ++n) {
        addNamed(n, "Lamp");
        loop.advance(Seconds(0.1));
    }
    EXPECT_EQ(panel.builds, 1);
    loop.advance(Seconds(0.6)); // 1.5 seconds after the first
    EXPECT_EQ(panel.builds, 2);
    ASSERT_EQ(panel.rows.size(), 10U);
    EXPECT_EQ(&panel.strip(0), first);
    EXPECT_FALSE(first->embargo());
    receive(stateService(3), "127.0.9.99"); // the same lamp at another address: one strip
    receive(lightState(3, {.label = "Moved"}));
    loop.advance(Seconds(2));
    EXPECT_EQ(panel.rows.size(), 10U);
}

TEST_F(Controller, rebuildsThatWaitAreOneThatReusesRowsOnlyIfAllMay)
{
    addNamed(1, "One");
    launch();
    panel.rows[0]->popover = true;
    controller.switchTheme(1);
    loop.advance(Seconds(3));
    panel.didEndLiveResize();
    loop.advance(Seconds(1)); // does not put off what waits
    panel.rows[0]->popover = false;
    loop.advance(Seconds(1.5));
    EXPECT_EQ(panel.builds, 2);
    EXPECT_EQ(panel.rowsMade, 2);
    loop.advance(Seconds(10));
    EXPECT_EQ(panel.builds, 2);

    panel.rows[0]->popover = true;
    controller.switchTheme(0);
    panel.rows[0]->popover = false;
    panel.didEndLiveResize(); // at once, and with new rows
    loop.advance(Seconds(10));
    EXPECT_EQ(panel.builds, 3);
    EXPECT_EQ(panel.rowsMade, 3);
}

TEST_F(Controller, reportsMoveTheStripsUnlessTouched)
{
    addNamed(1, "One");
    launch();
    LampControlStrip& strip = panel.strip(0);
    receive(lightState(1, {.brightness = 25700, .label = "One"}));
    EXPECT_NE(strip.brightnessSlider().value(), 100); // not within the socket's delivery
    loop.runPosted();
    EXPECT_EQ(strip.brightnessSlider().value(), 100);
    strip.brightnessSlider().moveTo(10);
    loop.advance(Seconds(0.2));
    receive(lightState(1, {.brightness = 51400, .label = "One"}));
    loop.advance(Seconds(3));
    EXPECT_EQ(strip.brightnessSlider().value(), 10);
    receive(lightState(1, {.brightness = 51400, .label = "One"})); // no change, so not told again
    loop.advance(Seconds(5));
    EXPECT_EQ(strip.brightnessSlider().value(), 200); // what came under the embargo
    receive(lightState(1, {.brightness = 12850, .label = "One"}));
    loop.runPosted();
    EXPECT_EQ(strip.brightnessSlider().value(), 50);

    addNamed(2, "Two");
    loop.advance(Seconds(3));
    strip.onOffButton().press();
    loop.advance(Seconds(1));
    receive(lightState(2, {.brightness = 300, .label = "Two"}));
    const bool pressed = strip.onOffButton().state();
    loop.advance(Seconds(5)); // another lamp spoke, this one has not answered
    EXPECT_EQ(strip.onOffButton().state(), pressed);

    // A command that got lost: what the lamp says is what the strip said before it was touched.
    strip.brightnessSlider().moveTo(77);
    loop.advance(Seconds(0.2));
    receive(lightState(1, {.brightness = 12850, .label = "One"}));
    loop.advance(Seconds(3));
    EXPECT_EQ(strip.brightnessSlider().value(), 77);
    loop.advance(Seconds(3));
    EXPECT_EQ(strip.brightnessSlider().value(), 50);

    receive(stateVersion(1, 10)); // white only, as it turns out
    loop.runPosted();
    EXPECT_FALSE(strip.satSlider().isEnabled());
}

TEST_F(Controller, aRebuildLetsTheLastMovementGoOut)
{
    addNamed(1, "One");
    launch();
    sockets.take();
    const auto lamp = engine().registry().lampWithID(lampID(1));
    const auto socket = lamp->socket;
    panel.strip(0).brightnessSlider().moveTo(10);
    panel.didEndLiveResize();
    loop.advance(Seconds(1));
    EXPECT_NE(lamp->socket, socket); // the network may be another by now
    EXPECT_EQ(panel.builds, 2);
    EXPECT_EQ(sockets.takeOfType(102).size(), 1U);
    EXPECT_EQ(panel.strip(0).brightnessSlider().value(), 10);
}

TEST_F(Controller, theOrderIsKeptOverRuns)
{
    defaults.setObject("sortOrder",
        Value::Array{Value::Dictionary{{"ID", lampID(3)}, {"group", false}},
            Value::Dictionary{{"ID", "gone"}, {"group", false}},
            Value::Dictionary{{"ID", lampID(1)}, {"group", true}}, "rubbish",
            Value::Dictionary{{"ID", lampID(3)}, {"group", false}}}); // only its first place counts
    for (unsigned n = 1; n <= 5; ++n)
        addNamed(n, "Lamp " + std::to_string(n));
    launch();
    EXPECT_EQ(panel.names(), (Names{"Lamp 3", "Lamp 1", "Lamp 2", "Lamp 4", "Lamp 5"}));
    EXPECT_EQ(linesWith("unable to find strip with ID 'gone' in sortedArray"), 1);
    EXPECT_EQ(linesWith("requested position 4 is greater"), 1);
    controller.applicationShouldTerminate();
    const auto saved = defaults.get(keys::kSortOrder);
    ASSERT_EQ(saved.size(), 6U);
    EXPECT_EQ(saved[3], Value("rubbish"));
    EXPECT_EQ(
        saved[1], Value(Value::Dictionary{{"ID", lampID(1)}, {"group", false}, {"sortOrder", 1}}));
    EXPECT_EQ(linesWith("saving sortOrder to defaults. It has 5 items"), 1);
}

TEST_F(Controller, theWindowBeginsAsItWasLeftAndAQuitWithoutLampsChangesNothing)
{
    const Value order = Value::Array{Value::Dictionary{{"ID", lampID(2)}, {"group", false}}};
    const Value state = Value::Dictionary{{"width", 955.0}, {"height", 640.0}};
    defaults.setObject("sortOrder", order);
    defaults.setObject("boxWindowState", state);
    defaults.setObject("currentTheme", 2);
    defaults.setObject("verbosity", 2);
    panel.rowSize = {200, 100};
    ManualController again(loop, defaults, log, engine(), panel); // of the layout stored
    again.awakeFromNib();
    EXPECT_EQ(linesWith("manual window did load"), 1);
    EXPECT_EQ(panel.content, (Size{955, 640})); // before there is any lamp
    again.applicationDidFinishLaunching();
    again.switchTheme(2);
    again.applicationShouldTerminate();
    panel.content = {300, 300};
    EXPECT_EQ(defaults.objectForKey("sortOrder"), order);
    EXPECT_EQ(defaults.objectForKey("boxWindowState"), state);
    panel.content = {955, 640};
    for (unsigned n = 1; n <= 5; ++n)
        addNamed(n, "Lamp");
    loop.advance(Seconds(2));
    EXPECT_EQ(panel.content, (Size{955, 640}));
    EXPECT_EQ(panel.rows.at(4)->origin(), (Point{0, 100})); // four abreast

    again.switchTheme(3);
    panel.content = {1000, 700};
    again.switchTheme(2);
    EXPECT_EQ(panel.content, (Size{955, 640}));
}

TEST_F(Controller, allOnAndOffAndAlerts)
{
    addNamed(1, "One");
    addNamed(2, "Two");
    launch();
    auto& presets = controller.statusMenu().statusPeresetSubMenu();
    const struct {
        std::function<void()> press;
        bool on;
    } cases[] = {
        {[&] { controller.allOff(); }, false},
        {[&] { controller.allOn(); }, true},
        {panel.actions.allOff, false},
        {panel.actions.allOn, true},
        {[&] { presets.items().at(1)->choose(); }, false},
        {[&] { presets.items().at(0)->choose(); }, true},
        {[&] { controller.scripting().allOff(); }, false},
        {[&] { controller.scripting().allOn(); }, true},
    };
    for (const auto& c : cases) {
        sockets.take();
        c.press();
        const auto sent = sockets.takeOfType(117);
        EXPECT_EQ(sent.size(), 2U);
        for (const auto& datagram : sent)
            EXPECT_EQ(datagram.data.at(36) != 0, c.on);
    }
    engine().groupings().removeGroupWithID("nobody");
    EXPECT_EQ(panel.alerts.at(0).title, "Edit Group Successful");
}

} // namespace lumeroom::test
