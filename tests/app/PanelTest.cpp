#include "FurnishedPanel.h"

namespace lumeroom::test {

TEST_F(Panel, afterABuildEveryRowShowsItsRecordInItsWell)
{
    furnish();
    const auto check = [&] {
        for (const FakeRow* each : panel.rows) {
            const Colour& colour = each->strip.colourWell().colour();
            EXPECT_FLOAT_EQ(colour.brightness, each->strip.brightnessSlider().value() / 255);
            EXPECT_EQ(colour.kelvin, 3500) << each->strip.label().text();
        }
    };
    showEverything();
    EXPECT_EQ(panel.rows.size(), 7U);
    EXPECT_EQ(row("Desk").strip.brightnessSlider().integerValue(), 194);
    check();
    navigation().groups.press();
    navigation().groups.press();
    check();
    sockets.take();
    row("Desk").strip.colourWell().scrollWheel(-3);
    loop.advance(Seconds(0.1));
    const auto sent = sockets.takeOfType(102);
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_NEAR(sent[0].u16(41), 188 * 255, 510); // a bit darker
}

TEST_F(Panel, aLampAtANewAddressIsOneLamp)
{
    furnish();
    defaults.setObject("badgeIcon", true);
    receive(stateService(1), "127.0.9.99");
    ASSERT_EQ(engine().registry().lightsArray().size(), 4U);
    receive(lightState(1, {.brightness = 25700, .label = "Table"}));
    engine().registry().lightsArray().back()->onoff = true;
    engine().registry().lightsArray().back()->brightness = 3;
    for (const bool rebuilt : {true, false}) {
        loop.advance(Seconds(rebuilt ? 2 : 0));
        EXPECT_EQ(panel.names(), (Names{"Table", "Ceiling", "Shelf"}));
        EXPECT_EQ(row("Table").strip.brightnessSlider().integerValue(), rebuilt ? 100 : 50);
        receive(lightState(1, {.brightness = 12850, .label = "Table"}));
        loop.runPosted();
    }
    EXPECT_EQ(badge, 3);
    EXPECT_EQ(titles(controller.statusMenu().statusMenu()),
        (Names{
            "Show manual control", "-", "Presets", "-", "Table", "Ceiling", "Shelf", "-", "Quit"}));
    showEverything();
    EXPECT_EQ(row("Study").strip.navigationButton().toolTip(), "View 2 lamps");
    row("Study").strip.navigationButton().press();
    EXPECT_EQ(panel.names(), (Names{"Table", "Ceiling"}));
}

TEST_F(Panel, aNewNameShowsEverywhereAtOnceAndNoNameKeepsTheRows)
{
    furnish();
    showEverything();
    GroupWorkflows& workflows = controller.workflows();
    row("Study").strip.reName("Den");
    row("Home").strip.reName("House");
    for (const MenuModel* menu : {&workflows.editGroupMenu(), &workflows.deleteGroupMenu()})
        EXPECT_EQ(titles(*menu), Names{"Den"});
    for (const MenuModel* menu : {&workflows.editLocationMenu(), &workflows.deleteLocationMenu()})
        EXPECT_EQ(titles(*menu), Names{"House"});
    const auto status = titles(controller.statusMenu().statusMenu());
    EXPECT_EQ(Names(status.begin() + 4, status.end()),
        (Names{"Desk", "Ceiling", "Shelf", "Den", "House", "Reading", "All", "-", "Quit"}));
    sockets.take();
    controller.statusMenu().statusMenu().itemWithTitle("Den")->choose();
    EXPECT_EQ(sockets.takeOfType(117).size(), 2U);
    workflows.editLocationMenu().items().front()->choose();
    EXPECT_EQ(panel.workflow.value().name, "House");
    const auto popover = *panel.workflow;
    popover.close(WorkflowPopover::kCancelTag, "");
    EXPECT_EQ(panel.names().at(4), "House");

    receive(lightState(1, {.brightness = 50000, .label = ""}));
    loop.advance(Seconds(0.1));
    EXPECT_EQ(panel.names().at(0), "Desk");
    loop.advance(Seconds(2)); // a row built anew has no other name than this
    EXPECT_TRUE(panel.names().at(0) == "Desk" || panel.names().at(0) == lampID(1));
}

TEST_F(Panel, theColourWellsFollowTheirSettingAtOnce)
{
    furnish();
    EXPECT_FALSE(row("Desk").strip.colourWell().isHidden());
    const int builds = panel.builds;
    defaults.setObject("scrollToDimTrackingSpeed", 3.0); // is read when needed
    loop.runPosted();
    EXPECT_EQ(panel.builds, builds);
    defaults.setObject("colourPickerType", 1);
    loop.runPosted();
    EXPECT_TRUE(row("Desk").strip.colourWell().isHidden());
    defaults.removeObject("colourPickerType");
    loop.runPosted();
    EXPECT_FALSE(row("Desk").strip.colourWell().isHidden());
}

TEST_F(Panel, theRuleForGroupsAndTheBadgeFollowTheirSettingsAtOnce)
{
    furnish();
    receive(lightState(2, {.power = 0, .label = "Ceiling"}));
    showEverything();
    loop.runPosted();
    EXPECT_FALSE(row("Study").strip.onOffButton().state()); // one of two is not more than half
    defaults.setObject("groupPowerStateBasedOn", 0);
    loop.runPosted();
    EXPECT_TRUE(row("Study").strip.onOffButton().state());

    defaults.setObject("badgeIcon", true);
    loop.runPosted();
    EXPECT_EQ(badge, 2);
    defaults.removeObject("badgeIcon");
    loop.runPosted();
    EXPECT_EQ(badge, std::nullopt);
}

TEST_F(Panel, whatAScriptChangesInAGroupShowsOnItsMembersAndStays)
{
    furnish();
    showEverything();
    const auto study = controller.scripting().getGroups().at(0);
    sockets.take();
    study->apply({{}, {}, 20, {}});
    EXPECT_EQ(row("Desk").strip.brightnessSlider().value(), 20);
    EXPECT_EQ(sockets.takeOfType(102).size(), 2U);
    for (const bool on : {false, true}) {
        study->apply({{}, {}, {}, on});
        EXPECT_EQ(row("Desk").strip.onOffButton().state(), on);
        EXPECT_EQ(sockets.takeOfType(117).size(), 2U);
    }
    // Sent before the lamps heard of it
    receive(lightState(1, {.brightness = 30000, .power = 0, .label = "Desk"}));
    receive(lightState(2, {.brightness = 30000, .power = 0, .label = "Ceiling"}));
    loop.advance(Seconds(3));
    for (const char* name : {"Desk", "Study"}) {
        EXPECT_EQ(row(name).strip.brightnessSlider().value(), 20) << name;
        EXPECT_TRUE(row(name).strip.onOffButton().state()) << name;
    }
}

TEST_F(Panel, lampsNewToThePanelShowOnce)
{
    furnish();
    navigation().groups.press();
    navigation().lights.press();
    controller.switchTheme(1); // no strip of a lamp is kept
    row("Study").strip.navigationButton().press();
    EXPECT_EQ(panel.names(), (Names{"Desk", "Ceiling"}));
    controller.applicationShouldTerminate();
    EXPECT_EQ(defaults.get(keys::kSortOrder).size(), 2U);
}

TEST_F(Panel, aGroupThatBecomesKnownIsInTheMenusAndOnThePanel)
{
    furnish();
    showEverything();
    receive(stateGrouping(kStateGroup, 3, 8, "Hall"));
    loop.runPosted();
    EXPECT_EQ(titles(controller.workflows().editGroupMenu()), (Names{"Study", "Hall"}));
    loop.advance(Seconds(2));
    EXPECT_EQ(row("Hall").strip.navigationButton().toolTip(), "View 1 lamps");
    receive(stateGrouping(kStateGroup, 2, 8, "Hall"));
    controller.lampStatesChanged();
    loop.runPosted();
    EXPECT_EQ(row("Hall").strip.navigationButton().toolTip(), "View 2 lamps");
    receive(stateGrouping(kStateLocation, 3, 10, "Yard"));
    loop.advance(Seconds(2));
    EXPECT_EQ(titles(controller.workflows().editLocationMenu()).back(), "Yard");
    EXPECT_EQ(row("Yard").strip.navigationButton().toolTip(), "View 1 lamps");
}

TEST_F(Panel, aPageFollowsWhoIsInIt)
{
    furnish();
    navigation().groups.press();
    row("Study").strip.navigationButton().press();
    const int builds = panel.builds;
    const auto joins = [this](unsigned n, unsigned group) {
        receive(stateGrouping(kStateGroup, n, group, group == 7 ? "Study" : "Hall", 1));
        controller.lampStatesChanged();
        loop.advance(Seconds(5));
        controller.lampStatesChanged();
        loop.advance(Seconds(5));
    };
    joins(3, 7);
    EXPECT_EQ(panel.names(), (Names{"Desk", "Ceiling", "Shelf"}));
    joins(1, 8);
    EXPECT_EQ(panel.names(), (Names{"Ceiling", "Shelf"}));
    EXPECT_EQ(panel.builds, builds + 2);
    joins(2, 8);
    joins(3, 8);
    EXPECT_EQ(panel.notice.value().title, "No lamps here any more");
    EXPECT_EQ(panel.builds, builds + 4);
    joins(1, 7);
    EXPECT_EQ(panel.names(), Names{"Desk"});
    EXPECT_FALSE(panel.notice);
}

TEST_F(Panel, aRowShowsThePowerThatWasSentUntilItsLampTellsItsOwn)
{
    furnish();
    receive(lightState(1, {.brightness = 40000, .label = "Desk"}));
    loop.runPosted();
    row("Desk").strip.onOffButton().press();
    panel.didEndLiveResize();
    loop.runPosted();
    EXPECT_FALSE(row("Desk").strip.onOffButton().state());
    sockets.take();
    row("Desk").strip.onOffButton().press();
    row("Desk").strip.onOffButton().press();
    engine().commands().sendSettingsToLamp(Settings::fromDictionary({{"onoff", true}}), lampID(1));
    EXPECT_EQ(sockets.takeOfType(117).size(), 3U); // though the lamp last reported to be on
    engine().commands().lampOn(lampID(1), false);
    receive(lightState(1, {.brightness = 40000, .label = "Desk"})); // the last got lost
    loop.runPosted();
    EXPECT_FALSE(row("Desk").strip.onOffButton().state());
    loop.advance(Seconds(6));
    EXPECT_TRUE(row("Desk").strip.onOffButton().state());
}

TEST_F(Panel, zonesComeAsTheyBecomeKnownAndNoneAreWaitedFor)
{
    furnish();
    engine().registry().lampWithID(lampID(3))->zones.reset();
    controller.panelSetUp().navigation().navigateToZones(row("Shelf").strip);
    EXPECT_TRUE(panel.rows.empty());
    EXPECT_FALSE(panel.throbbing);
    loop.advance(Seconds(5));
    EXPECT_TRUE(panel.rows.empty());
    receive(stateMultizone(3, 8, 0, 100)); // new zones while zones are in view
    receive(stateZone(3, 5, 0, 100)); // and three that the lamp does not have
    receive(stateMultizone(3, 8, 0, 100));
    loop.advance(Seconds(2));
    EXPECT_EQ(panel.rows.size(), 5U);
    navigation().back.press();
    EXPECT_EQ(row("Shelf").strip.navigationButton().toolTip(), "View 5 zones");
    EXPECT_TRUE(row("Desk").strip.navigationButton().isHidden());
    receive(stateZone(1, 8, 0, 100)); // a lamp that turns out to have zones
    loop.runPosted();
    EXPECT_FALSE(row("Desk").strip.navigationButton().isHidden());
    EXPECT_EQ(row("Desk").strip.navigationButton().toolTip(), "View 8 zones");
    EXPECT_EQ(row("Desk").strip.kindBadge().toolTip(), "View 8 zones");
}

TEST_F(Panel, rowsFollowALightStrip)
{
    furnish();
    receive(stateGrouping(kStateGroup, 3, 0xDD, "Hall"));
    receive(stateGrouping(kStateLocation, 3, 0xEE, "Yard"));
    receive(stateTagLabels(3, 2, "Late"));
    receive(stateTags(3, 2));
    showEverything();
    const auto shelf = [this](const char* name) {
        loop.runPosted();
        return std::pair(row(name).strip.brightnessSlider().integerValue(),
            row(name).strip.onOffButton().state());
    };
    const int all = shelf("All").first;
    Datagram dark = stateMultizone(3, 8, 0, 100);
    for (std::size_t zone = 0; zone < 8; ++zone)
        dark.at(36 + 2 + 8 * zone + 5) = 100; // the high byte of the brightness
    receive(dark);
    EXPECT_LT(shelf("All").first, all);
    for (const bool on : {true, false}) {
        receive(lightState(3, {.power = on ? 65535U : 0U, .label = "Shelf"}));
        for (const char* name : {"Shelf", "Hall", "Yard", "Late"})
            EXPECT_EQ(shelf(name), std::pair(100, on)) << name;
    }
    engine().commands().allOn(true);
    receive(lightState(3, {.power = 0, .label = "Shelf"})); // which did not hear of it
    EXPECT_EQ(shelf("Hall"), std::pair(100, false));

    row("Shelf").strip.navigationButton().press();
    EXPECT_EQ(shelf("zone 2"), std::pair(100, false));
    receive(stateZone(3, 8, 2, 100));
    EXPECT_EQ(shelf("zone 2"), std::pair(255, false));
    receive(lightState(3, {.label = "Shelf"}));
    EXPECT_EQ(shelf("zone 2"), std::pair(255, true));
    const auto dim = [this](Value::Dictionary settings) {
        engine().commands().sendSettingsToLamp(Settings::fromDictionary(settings), lampID(3));
        panel.didEndLiveResize();
    };
    dim({{"colour", 1}, {"saturation", 0}, {"brightness", 40}, {"warmth", 0}});
    EXPECT_EQ(shelf("zone 2"), std::pair(40, true));
    receive(stateZone(3, 8, 2, 100)); // which did not hear of it
    EXPECT_EQ(shelf("zone 2"), std::pair(255, true));
    engine().commands().sendSettingsToLamp(
        Settings::fromDictionary({{"brightness", 55}}), lampID(3) + "-2");
    navigation().back.press();
    EXPECT_EQ(shelf("Shelf"), std::pair((40 + 55) / 2, true));
    dim({{"brightness", 30}});
    EXPECT_EQ(shelf("Shelf"), std::pair(30, true));
}

} // namespace lumeroom::test
