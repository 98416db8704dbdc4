#include "ControllerHarness.h"

namespace lumeroom::test {

/// Fourteen lamps; two in a group, the last ones with names of their own.
struct Find : Controller {
    Find()
    {
        for (unsigned n = 1; n <= 11; ++n)
            addNamed(n, "Lamp " + std::to_string(n));
        addNamed(12, "Straße");
        launch();
        controller.switchTheme(1);
    }
    void furnish()
    {
        addNamed(13, "\xC3\x89t\xC3\xA9"); // "Été"
        addNamed(14, "Desk");
        for (unsigned n : {3U, 14U})
            receive(stateGrouping(kStateGroup, n, 7,
                "K\xC3\xBC"
                "che"));
        receive(stateGrouping(kStateLocation, 5, 9, "Attic"));
        loop.advance(Seconds(2));
    }
    Names found(const std::string& text)
    {
        panel.find.look(text);
        return panel.names();
    }
};

TEST_F(Find, aNameIsFoundHoweverItIsWrittenAndByGroupAndLocation)
{
    EXPECT_FALSE(panel.find.opensByTyping());
    furnish();
    EXPECT_TRUE(panel.find.opensByTyping());
    const auto all = panel.names();
    EXPECT_EQ(found("desk"), all); // it is not open
    panel.find.open();
    EXPECT_EQ(panel.found, "14 of 14");
    EXPECT_EQ(found("ete"), Names{all[12]});
    EXPECT_EQ(found("STRASSE"), Names{"Straße"});
    EXPECT_EQ(found("KUCHE"), (Names{"Lamp 3", "Desk"}));
    EXPECT_EQ(found(" ku  desk "), Names{"Desk"});
    EXPECT_EQ(found("amp 1"), (Names{"Lamp 1", "Lamp 10", "Lamp 11"}));
    EXPECT_EQ(found("lamp 0"), Names()); // though there is a 10
    EXPECT_EQ(found("attic"), Names{"Lamp 5"});
    EXPECT_EQ(panel.found, "1 of 14");
    EXPECT_EQ(found("\xFF"), Names());
    EXPECT_EQ(found(""), all);

    EXPECT_EQ(found("table"), Names());
    EXPECT_EQ(panel.notice.value().title, "No lamp is called 'table'");
    receive(lightState(2, {.brightness = 50000, .label = "Table"}), lampAddress(2));
    loop.advance(Seconds(2));
    EXPECT_EQ(panel.names(), Names{"Table"});
    EXPECT_FALSE(panel.notice);
    found("nobody");
    panel.notice->actions.at(0).act();
    EXPECT_FALSE(panel.notice);
    EXPECT_EQ(panel.names().size(), 14U);
    EXPECT_EQ(panel.found, "");

    receive(stateService(15), lampAddress(15));
    navigation().groups.press();
    panel.find.open();
    EXPECT_EQ(found("new lamp"), Names{lampID(15)}); // which is not the name that shows
    found(lampID(15));
    EXPECT_EQ(panel.notice.value().title, "Nothing here is called '" + lampID(15) + "'");
}

TEST_F(Find, theOthersTakeNoPlaceAndLoseNone)
{
    furnish();
    const Size window = panel.content;
    const auto all = panel.rows;
    panel.find.open();
    EXPECT_EQ(found("lamp 1"), (Names{"Lamp 1", "Lamp 10", "Lamp 11"}));
    EXPECT_EQ(panel.rows[2]->origin(), (Point{0, 100}));
    EXPECT_FALSE(all[1]->shown);
    EXPECT_EQ(panel.content, window);
    controller.panelSetUp().refreshSetUpUsingRecycling(true);
    EXPECT_EQ(panel.names(), (Names{"Lamp 1", "Lamp 10", "Lamp 11"}));
    EXPECT_EQ(panel.content, window);

    all[1]->popover = true; // what is in use stays
    EXPECT_EQ(found("lamp 1").size(), 4U);
    all[1]->popover = false;
    found("lamp 1");
    FakeRow& first = *panel.rows[0];
    first.dragged = true;
    first.strip.viewDidBeginDragging();
    first.strip.viewDidMoveTo({10, 75}); // over the second
    first.dragged = false;
    first.strip.viewDidFinishDragging();
    EXPECT_EQ(panel.names(), (Names{"Lamp 10", "Lamp 1", "Lamp 11"}));
    EXPECT_EQ(defaults.get(keys::kSortOrder).size(), 14U);
    panel.find.close();
    EXPECT_EQ(panel.names().at(9), "Lamp 1");
    EXPECT_TRUE(all[1]->shown);

    panel.find.open(); // for another name
    controller.panelSetUp().refreshSetUpUsingRecycling(true);
    EXPECT_EQ(panel.rows.size(), 14U);
    found("desk");
    navigation().groups.press(); // to another page
    EXPECT_EQ(panel.found, "");
    EXPECT_EQ(panel.rows.size(), 15U);
}

} // namespace lumeroom::test
