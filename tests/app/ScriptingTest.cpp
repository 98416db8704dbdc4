#include "app/Scripting.h"

#include "support/EngineHarness.h"

namespace lumeroom::test {

struct ScriptingTest : EngineHarness {
    std::shared_ptr<LampControlStrip> addStripFor(const std::string& id, StripType type)
    {
        auto strip = std::make_shared<LampControlStrip>(id, type, loop);
        strip->reactivateWithEngineRoom(&engine());
        collection.add(strip);
        return strip;
    }
    /// A lamp with its strip on the panel.
    std::shared_ptr<LampControlStrip> addShownLamp(unsigned n)
    {
        addLamp(n, {.label = "Lamp"});
        return addStripFor(lampID(n), StripType::Lamp);
    }

    StripCollection collection{defaults, log};
    std::vector<std::string> done;
    MenuModel presets;
    bool hasMenu = true;
    Scripting scripting{collection, log,
        {.stripsInGroup =
                [this](const std::string& id) {
                    return collection.stripsOfLamps(engine().registry().lightsArrayForGroup(id));
                },
            .allOn = [this] { done.emplace_back("on"); },
            .allOff = [this] { done.emplace_back("off"); },
            .allBlink = {},
            .presetPullDown = [this] { return hasMenu ? &presets : nullptr; },
            .implementPreset
            = [this](const MenuItemModel& item) { done.push_back("preset " + item.title()); }}};
};

TEST_F(ScriptingTest, propertiesAreThoseOfTheStripInAScriptsUnits)
{
    const auto strip = addShownLamp(1);
    const auto lamp = scripting.getLamps().at(0);
    StripSettings shown;
    shown.colour = 65535;
    shown.saturation = 99.9;
    shown.brightness = 254.6;
    shown.onoff = true;
    shown.label = "Desk";
    strip->implementSettingsFromDictionaryWithoutActing(shown);
    EXPECT_EQ(lamp->hue(), 257);
    EXPECT_EQ(lamp->whiteness(), 99);
    EXPECT_EQ(lamp->brightness(), 254);
    EXPECT_TRUE(lamp->state());
    EXPECT_EQ(lamp->name(), "Desk");
    EXPECT_EQ(lamp->ID(), lampID(1));

    lamp->setHue(100);
    EXPECT_EQ(strip->colourSlider().value(), 25500);
    EXPECT_EQ(lamp->hue(), 100);
}

TEST_F(ScriptingTest, settersGoTheStripsWayAndApplyAlwaysSends)
{
    const auto strip = addShownLamp(1);
    const auto lamp = scripting.getLamps().at(0);
    sockets.take();
    lamp->setBrightness(100);
    EXPECT_EQ(sockets.takeOfType(102).size(), 1U);
    lamp->setBrightness(50); // within the embargo it only shows
    EXPECT_EQ(strip->brightnessSlider().value(), 50);
    EXPECT_TRUE(sockets.takeOfType(102).empty());
    lamp->apply({10, {}, 20, false});
    std::multiset<unsigned> sent;
    for (const auto& datagram : sockets.take())
        sent.insert(datagram.type());
    EXPECT_EQ(sent, (std::multiset<unsigned>{102, 117})); // colour and power
    EXPECT_EQ(lamp->brightness(), 20);
    EXPECT_EQ(lamp->hue(), 10);
    lamp->apply({{}, {}, {}, true}); // though the lamp, for all that is known, is on
    EXPECT_EQ(sockets.takeOfType(117).size(), 1U);
    lamp->apply({{}, {}, 19, {}}); // one below, as a lamp's rounding would be
    EXPECT_EQ(lamp->brightness(), 19);
    loop.advance(Seconds(8));
    sockets.take();
    lamp->apply({}); // does nothing, so reports go on and the next change is sent
    EXPECT_FALSE(strip->embargo());
    lamp->setWhiteness(7);
    EXPECT_EQ(sockets.takeOfType(102).size(), 1U);
}

TEST_F(ScriptingTest, theListsHoldWhatThePanelShowsUntilItChanges)
{
    addShownLamp(1);
    addShownLamp(2);
    addLamp(3); // not on the panel
    for (unsigned n : {2U, 3U})
        receive(stateGrouping(53, n, 7, "Kitchen"));
    const std::string kitchen = engine().registry().groupsArray().at(0)->id;
    addStripFor(lampID(1) + "-0", StripType::Zone);
    addStripFor(kitchen, StripType::Group);
    addStripFor("0", StripType::Group);

    const auto lamps = scripting.getLamps();
    ASSERT_EQ(lamps.size(), 3U); // the zone is listed as a lamp
    const auto groups = scripting.getGroups();
    ASSERT_EQ(groups.size(), 2U);
    ASSERT_EQ(groups[0]->getLamps().size(), 1U);
    EXPECT_EQ(groups[0]->getLamps()[0]->ID(), lampID(2));
    EXPECT_NE(groups[0]->getLamps()[0], lamps[1]); // of its own
    EXPECT_EQ(groups[1]->getLamps(), lamps); // the very objects

    int changes = 0;
    scripting.onChange = [&changes] { ++changes; };
    addShownLamp(4);
    EXPECT_EQ(scripting.getLamps(), lamps);
    scripting.invalidate();
    EXPECT_EQ(scripting.getLamps().size(), 4U);
    collection.clear();
    scripting.rebuild();
    EXPECT_TRUE(scripting.getLamps().empty());
    EXPECT_TRUE(scripting.getGroups().empty());
    EXPECT_EQ(changes, 2);

    addShownLamp(1); // an empty list is never kept
    EXPECT_EQ(scripting.getLamps().size(), 1U);
}

TEST_F(ScriptingTest, aGroupsChangeReachesItsLamps)
{
    const auto member = addShownLamp(1);
    addShownLamp(2);
    for (unsigned n : {1U, 2U})
        receive(stateGrouping(53, n, 7, "Kitchen"));
    addStripFor(engine().registry().groupsArray().at(0)->id, StripType::Group);
    sockets.take();
    scripting.getGroups().at(0)->setBrightness(99);
    EXPECT_EQ(sockets.takeOfType(102).size(), 2U);
    scripting.getGroups().at(0)->apply({{}, {}, 10, {}});
    EXPECT_EQ(sockets.takeOfType(102).size(), 2U);
    member->setObjectForKey(8, keys::kBrightness);
    scripting.getGroups().at(0)->apply({{}, {}, 7, {}}); // one below shows in the members too
    EXPECT_EQ(member->brightnessSlider().value(), 7);
}

TEST_F(ScriptingTest, presetsComeBeforeTheCommandsOfTheirName)
{
    EXPECT_EQ(scripting.implementPresetFromScript("All on"), 1);
    EXPECT_EQ(scripting.implementPresetFromScript("All off"), 1);
    defaults.setObject("verbosity", 1);
    EXPECT_EQ(scripting.performDirectParameterCommand("All blink"), 1);
    EXPECT_EQ(linesWith("The direct parameter is: 'All blink'"), 1);
    EXPECT_EQ(scripting.implementPresetFromScript("all on"), 0);
    EXPECT_EQ(linesWith("unable to find preset all on"), 1);
    presets.addItem("Manage presets...", [] { FAIL() << "the entry itself was chosen"; });
    presets.addItem("All on", {});
    EXPECT_EQ(scripting.implementPresetFromScript("All on"), 1);
    EXPECT_EQ(scripting.implementPresetFromScript("Manage presets..."), 1);
    hasMenu = false;
    EXPECT_EQ(scripting.implementPresetFromScript("Manage presets..."), 0);
    EXPECT_EQ(
        done, (std::vector<std::string>{"on", "off", "preset All on", "preset Manage presets..."}));
}

} // namespace lumeroom::test
