#include "ControllerHarness.h"

namespace lumeroom::test {

struct ScriptingTest : Controller {
    ScriptingTest()
    {
        for (unsigned n = 1; n <= 2; ++n) {
            addNamed(n, n == 1 ? "Desk" : "Ceiling");
            receive(stateGrouping(53, n, 7, "Kitchen"));
        }
        kitchen = {engine().registry().groupsArray().at(0)->id, StripType::Group};
        launch();
        loop.advance(Seconds(8));
        sockets.take();
    }
    ScriptSettings shown(const StripTarget& target)
    {
        return ScriptSettings::of(scripting.thing(target)->record.settings);
    }
    std::size_t sent(unsigned type) { return sockets.takeOfType(type).size(); }

    Scripting& scripting = controller.scripting();
    const StripTarget desk{lampID(1), StripType::Lamp};
    StripTarget kitchen;
};

TEST_F(ScriptingTest, readsAreInAScriptsUnits)
{
    receive(lightState(1, {.hue = 65535, .brightness = 65400, .label = "Desk"}));
    loop.runPosted();
    const ScriptSettings lamp = scripting.getLamps().at(0)->settings();
    EXPECT_EQ(lamp.hue, 257);
    EXPECT_EQ(lamp.whiteness, 255);
    EXPECT_EQ(lamp.brightness, 254);
    EXPECT_EQ(lamp.state, true);
    EXPECT_EQ(scripting.getLamps()[0]->name(), "Desk");
}

TEST_F(ScriptingTest, setGoesTheStripsWayAndSaysWhatItWouldNotSendAndApplyAlwaysSends)
{
    const auto lamp = scripting.strip(desk);
    EXPECT_TRUE(lamp->reasonNotToSend({.hue = 1}));
    EXPECT_FALSE(scripting.strip(kitchen)->reasonNotToSend({.hue = 1}));
    EXPECT_FALSE(lamp->reasonNotToSend({.brightness = 100}));
    EXPECT_TRUE(lamp->reasonNotToSend({.brightness = 193})); // one below
    lamp->set({.brightness = 100});
    EXPECT_EQ(sent(102), 1U);
    EXPECT_TRUE(lamp->reasonNotToSend({.brightness = 50}));
    lamp->set({.brightness = 50}); // within the embargo it only shows
    EXPECT_EQ(sent(102), 0U);
    EXPECT_EQ(shown(desk).brightness, 50);
    lamp->apply({10, {}, 20, false});
    std::multiset<unsigned> types;
    for (const auto& datagram : sockets.take())
        types.insert(datagram.type());
    EXPECT_EQ(types, (std::multiset<unsigned>{102, 117})); // colour and power
    EXPECT_EQ(shown(desk).hue, 10);
    lamp->apply({{}, {}, {}, true}); // though the lamp, for all that is known, is on
    EXPECT_EQ(sent(117), 1U);
    lamp->apply({{}, {}, 19, {}}); // one below, as a lamp's rounding would be
    EXPECT_EQ(shown(desk).brightness, 19);
    loop.advance(Seconds(8));
    sockets.take();
    lamp->apply({}); // does nothing, so reports go on and the next change is sent
    EXPECT_FALSE(lamp->reasonNotToSend({.whiteness = 7}));
}

TEST_F(ScriptingTest, whatThePanelDoesNotShowIsReachedAllTheSame)
{
    const StripTarget all{"0", StripType::Group};
    receive(stateGrouping(50, 1, 8, "Home"));
    const StripTarget home{engine().registry().locationssArray().at(0)->id, StripType::Location};
    EXPECT_EQ(scripting.everything().size(), 5U);
    EXPECT_TRUE(scripting.getGroups().empty());
    EXPECT_EQ(scripting.strip({"no such", StripType::Group}), nullptr);
    EXPECT_FALSE(scripting.thing({lampID(1) + "-0", StripType::Zone}));

    scripting.strip(kitchen)->apply({.brightness = 99});
    EXPECT_EQ(sent(102), 2U);
    EXPECT_EQ(panel.strip(0).brightnessSlider().value(), 99); // the members on the panel follow
    scripting.strip(home)->apply({.brightness = 10});
    EXPECT_EQ(sent(102), 1U);
    scripting.strip(kitchen)->apply({.brightness = 9}); // one below
    EXPECT_EQ(panel.strip(0).brightnessSlider().value(), 9);
    EXPECT_EQ(shown(kitchen).brightness, 9);
    sockets.take();
    scripting.strip(all)->apply({.state = false});
    EXPECT_EQ(sent(117), 2U);

    navigation().groups.press();
    navigation().lights.press();
    loop.advance(Seconds(8));
    sockets.take();
    EXPECT_EQ(panel.names(), Names{"Kitchen"});
    EXPECT_EQ(scripting.getGroups().at(0)->getLamps().size(), 0U);
    int changes = 0;
    scripting.onChange = [&changes] { ++changes; };
    scripting.strip(desk)->apply({.brightness = 77});
    EXPECT_EQ(sent(102), 1U);
    EXPECT_GT(changes, 0);
    receive(lightState(1, {.brightness = 300, .label = "Desk"}));
    loop.runPosted();
    EXPECT_EQ(shown(desk).brightness, 77); // the report is older than the change
    scripting.strip(kitchen)->apply({.brightness = 55}); // on the panel, its member is not
    EXPECT_EQ(shown(desk).brightness, 55);
    loop.advance(Seconds(8));
    for (const auto& report : {lightState(1, {.brightness = 25700, .label = "Desk"}),
             lightState(1, {.brightness = 25700, .label = "Table"})}) {
        changes = 0;
        receive(report);
        loop.runPosted();
        EXPECT_GT(changes, 0);
    }
    EXPECT_EQ(shown(desk).brightness, 100);
    EXPECT_EQ(scripting.thing(desk)->record.settings.label, "Table");
}

TEST_F(ScriptingTest, zonesAndManyStripsThatAreNotShown)
{
    StripFinder& finder = controller.stripFinder();
    addStrip(3, 8);
    loop.advance(Seconds(8));
    sockets.take();
    const StripTarget zone{lampID(3) + "-2", StripType::Zone};
    EXPECT_EQ(shown(zone).hue, 0); // 102 of 65,535
    EXPECT_TRUE(scripting.strip(zone)->reasonToRefuse({.state = false}));
    scripting.strip(zone)->apply({.brightness = 40});
    EXPECT_EQ(sent(501), 1U);
    const auto kept = finder.stripFor(zone);
    EXPECT_EQ(finder.stripFor(zone), kept);
    for (unsigned n = 4; n < 34; ++n)
        addStrip(n, 8);
    for (unsigned n = 4; n < 34; ++n) { // 240 more
        for (unsigned i = 0; i < 8; ++i)
            finder.stripFor({lampID(n) + "-" + std::to_string(i), StripType::Zone});
    }
    EXPECT_EQ(finder.stripInUse(zone), kept);
    for (unsigned i = 0; i < 8; ++i)
        finder.stripFor({lampID(3) + "-" + std::to_string(i), StripType::Zone});
    EXPECT_EQ(finder.stripInUse(zone), kept); // it was asked for again
    for (unsigned n = 10; n < 15; ++n)
        finder.stripFor({lampID(n), StripType::Lamp});
    EXPECT_EQ(finder.stripInUse({lampID(4) + "-0", StripType::Zone}), nullptr);
    const std::size_t known = scripting.everything().size();
    receive(stateZone(3, 5, 0, 100)); // three of the eight are none of the lamp's
    EXPECT_EQ(scripting.everything().size(), known - 3);
    EXPECT_FALSE(scripting.thing({lampID(3) + "-5", StripType::Zone}));
}

TEST_F(ScriptingTest, theListsHoldWhatThePanelShowsUntilItChanges)
{
    navigation().groups.press();
    navigation().all.press();
    loop.advance(Seconds(1));
    const auto lamps = scripting.getLamps();
    ASSERT_EQ(lamps.size(), 2U);
    const auto groups = scripting.getGroups();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0]->getLamps().size(), 2U);
    EXPECT_NE(groups[0]->getLamps()[0], lamps[0]); // of its own
    EXPECT_EQ(groups[1]->getLamps(), lamps); // the very objects
    EXPECT_EQ(scripting.getLamps(), lamps);
    scripting.invalidate();
    EXPECT_NE(scripting.getLamps(), lamps);
    navigation().lights.press();
    loop.advance(Seconds(1));
    EXPECT_TRUE(scripting.getLamps().empty());
}

TEST_F(ScriptingTest, presetsComeBeforeTheCommandsOfTheirName)
{
    std::vector<std::string> done;
    MenuModel presets;
    bool hasMenu = true;
    Scripting other(controller.known(), controller.panelSetUp().collection(),
        controller.stripFinder(), log,
        {.stripsInGroup = {},
            .allOn = [&] { done.emplace_back("on"); },
            .allOff = [&] { done.emplace_back("off"); },
            .allBlink = {},
            .presetPullDown = [&] { return hasMenu ? &presets : nullptr; },
            .implementPreset
            = [&](const MenuItemModel& item) { done.push_back("preset " + item.title()); }});
    EXPECT_EQ(other.implementPresetFromScript("All on"), 1);
    EXPECT_EQ(other.implementPresetFromScript("All off"), 1);
    defaults.setObject("verbosity", 1);
    EXPECT_EQ(other.performDirectParameterCommand("All blink"), 1);
    EXPECT_EQ(linesWith("The direct parameter is: 'All blink'"), 1);
    EXPECT_EQ(other.implementPresetFromScript("all on"), 0);
    EXPECT_EQ(linesWith("unable to find preset all on"), 1);
    presets.addItem("Manage presets...", [] { FAIL() << "the entry itself was chosen"; });
    presets.addItem("All on", {});
    EXPECT_EQ(other.implementPresetFromScript("All on"), 1);
    EXPECT_EQ(other.implementPresetFromScript("Manage presets..."), 1);
    hasMenu = false;
    EXPECT_EQ(other.implementPresetFromScript("Manage presets..."), 0);
    EXPECT_EQ(
        done, (std::vector<std::string>{"on", "off", "preset All on", "preset Manage presets..."}));
}

} // namespace lumeroom::test
