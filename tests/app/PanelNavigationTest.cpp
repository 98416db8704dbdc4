#include "FurnishedPanel.h"

namespace lumeroom::test {

TEST_F(Panel, theButtonsChooseAnyMixOfKinds)
{
    furnish();
    EXPECT_EQ(panel.names(), (Names{"Desk", "Ceiling", "Shelf"}));
    showEverything();
    EXPECT_EQ(
        panel.names(), (Names{"Desk", "Ceiling", "Shelf", "Study", "Home", "Reading", "All"}));
    EXPECT_EQ(row("Study").strip.kindBadge().toolTip(), "Group");
    EXPECT_EQ(row("Home").strip.kindBadge().image(), BadgeModel::Image::RoomGroup);
    EXPECT_EQ(row("Study").strip.navigationButton().toolTip(), "View 2 lamps");
    EXPECT_EQ(row("Home").strip.navigationButton().toolTip(), "View 2 lamps");
    EXPECT_TRUE(row("All").strip.navigationButton().isHidden());
    EXPECT_TRUE(row("All").strip.renameButton().isHidden());
    EXPECT_FALSE(row("Study").strip.renameButton().isHidden());
    EXPECT_TRUE(row("Desk").strip.kindBadge().isHidden());
    EXPECT_EQ(row("Shelf").strip.navigationButton().toolTip(), "View 8 zones");
    EXPECT_EQ(row("Shelf").strip.kindBadge().toolTip(), "Light strip");

    const int made = panel.rowsMade;
    navigation().lights.press();
    EXPECT_EQ(panel.names(), (Names{"Study", "Home", "Reading", "All"}));
    navigation().lights.press();
    EXPECT_EQ(panel.rowsMade, made); // the rows came back
    EXPECT_EQ(row("Desk").timesHidden, 1); // while it was not on the panel
    EXPECT_EQ(row("Study").timesHidden, 0); // a rebuild is not seen
    for (auto* button :
        {&navigation().lights, &navigation().groups, &navigation().locations, &navigation().tags})
        button->press();
    navigation().all.press();
    EXPECT_TRUE(navigation().lights.state()); // something always shows
}

TEST_F(Panel, whatIsSwitchedOnComesIntoSightOnce)
{
    furnish();
    navigation().groups.press();
    navigation().all.press();
    navigation().lights.press(); // off
    ASSERT_EQ(panel.revealed, (Names{"Study", "All"}));
    const int builds = panel.builds;
    navigation().showOnly(navigation().locations);
    EXPECT_EQ(panel.builds, builds + 1);
    EXPECT_EQ(panel.names(), Names{"Home"});
    EXPECT_EQ(panel.revealed.back(), "Home");

    // While the rows must stay
    row("Home").popover = true;
    navigation().groups.press();
    navigation().tags.press();
    navigation().lights.press();
    navigation().lights.press(); // by mistake
    row("Home").popover = false;
    loop.advance(Seconds(6));
    EXPECT_EQ(panel.names(), (Names{"Study", "Home", "Reading"}));
    EXPECT_EQ(panel.revealed.size(), 4U);
    EXPECT_EQ(panel.revealed.back(), "Reading");
    panel.didEndLiveResize();
    loop.runPosted();
    EXPECT_EQ(panel.revealed.size(), 4U);
}

TEST_F(Panel, drillingDownAndBack)
{
    furnish();
    showEverything();
    row("Study").strip.navigationButton().press();
    EXPECT_EQ(panel.names(), (Names{"Desk", "Ceiling"}));
    EXPECT_EQ(navigation().filter.value().description, "viewing lamps in group Study");
    EXPECT_TRUE(defaults.objectForKey("classicWindowState"));
    navigation().back.press();
    EXPECT_FALSE(navigation().filter);
    EXPECT_EQ(panel.rows.size(), 7U);

    row("Shelf").strip.navigationButton().press();
    EXPECT_EQ(navigation().filter->description, "viewing zones for multizone lamp Shelf");
    EXPECT_EQ(panel.rows.size(), 8U);
    EXPECT_EQ(panel.names().at(7), "zone 7");
    EXPECT_EQ(panel.strip(7).getID(), lampID(3) + "-7");
    sockets.take();
    panel.strip(2).brightnessSlider().moveTo(100);
    loop.advance(Seconds(0.2));
    EXPECT_EQ(sockets.takeOfType(501).size(), 1U);
    LampControlStrip& zone = row("zone 7").strip;
    for (ButtonModel* button : {&zone.onOffButton(), &zone.renameButton()}) {
        EXPECT_FALSE(button->isEnabled());
        EXPECT_FALSE(button->toolTip().empty()); // says why
    }
    receive(stateMultizone(3, 8, 0, 900));
    loop.runPosted();
    EXPECT_EQ(zone.colourSlider().value(), 907);
    navigation().back.press();

    row("Home").strip.navigationButton().press();
    EXPECT_EQ(panel.names(), (Names{"Desk", "Ceiling"}));
    navigation().back.press();
    row("Reading").strip.navigationButton().press();
    EXPECT_EQ(panel.names(), Names{"Desk"});
    EXPECT_EQ(navigation().filter->description, "viewing lamps tagged Reading");
    EXPECT_TRUE(row("Desk").shown);
}

TEST_F(Panel, draggingReordersAndIsKept)
{
    furnish();
    controller.switchTheme(1);
    FakeRow& desk = row("Desk");
    desk.dragged = true;
    desk.strip.viewDidBeginDragging();
    desk.strip.viewDidMoveTo({10, 125}); // over the third row
    EXPECT_EQ(panel.names(), (Names{"Ceiling", "Shelf", "Desk"}));
    EXPECT_EQ(row("Ceiling").origin(), (Point{0, 0}));
    EXPECT_EQ(desk.origin(), (Point{0, 0})); // it stays under the hand
    addNamed(4, "Late"); // must not take the row from the hand
    loop.advance(Seconds(2));
    EXPECT_TRUE(desk.shown);
    EXPECT_EQ(panel.names().size(), 3U);
    desk.strip.viewDidMoveTo({10, 999});
    desk.dragged = false;
    desk.strip.viewDidFinishDragging();
    EXPECT_EQ(desk.origin(), (Point{0, 100}));
    EXPECT_EQ(defaults.get(keys::kSortOrder).at(2).find("ID")->stringValue(), lampID(1));
    loop.advance(Seconds(5));
    EXPECT_EQ(panel.names(), (Names{"Ceiling", "Shelf", "Desk", "Late"}));
}

TEST_F(Panel, layoutsSetTheWindow)
{
    furnish();
    EXPECT_EQ(panel.scrollers, std::pair(true, false));
    EXPECT_EQ(panel.content, (Size{1920, 50})); // three strips of 800 are wider than the screen
    const int made = panel.rowsMade;
    controller.switchTheme(1);
    EXPECT_EQ(panel.rowsMade, made + 3);
    EXPECT_EQ(panel.content, (Size{935, 300}));
    EXPECT_EQ(row("Shelf").origin(), (Point{0, 100}));
    EXPECT_EQ(defaults.get(keys::kCurrentTheme), 1);
    controller.switchTheme(9);
    EXPECT_TRUE(panel.rows.empty());
    defaults.setObject(keys::kCurrentTheme, 2); // by an import, say
    loop.runPosted();
    EXPECT_EQ(panel.rows.size(), 3U);
    for (const float width : {935.0F, 934.0F}) { // the latter cuts every row
        panel.content = {width, 300};
        panel.didEndLiveResize();
        loop.advance(Seconds(1));
        EXPECT_EQ(panel.scrollers, std::pair(width < 935, true));
    }
    defaults.setObject("currentTheme", std::int64_t(1) << 32);
    loop.runPosted();
    EXPECT_TRUE(panel.rows.empty());

    defaults.setObject("colourPickerType", 1);
    controller.switchTheme(3);
    EXPECT_TRUE(row("Desk").strip.colourWell().isHidden());
}

} // namespace lumeroom::test
