#include "app/StatusMenu.h"
#include "ControllerHarness.h"
#include "strips/LampsPopUp.h"
#include "strips/StripHarness.h"

namespace lumeroom::test {

struct StatusItem : StripHarness {
    Lines calls;
    StatusMenu statusMenu{engine().registry(), defaults,
        {.showManualControl = [this] { calls.emplace_back("show"); },
            .allOn = [this] { calls.emplace_back("on"); },
            .allOff = [this] { calls.emplace_back("off"); }}};
};

TEST_F(StatusItem, theMenuControlsTheLamps)
{
    const Lines always{"Show manual control", "-", "Presets", "-", "Quit"};
    statusMenu.populatePresetPullDown();
    statusMenu.populatePresetPullDown(); // anew, not once more
    statusMenu.begin();
    EXPECT_EQ(titles(statusMenu.statusMenu()), always);
    addLamp(1, {.power = 0});
    sockets.take();
    const auto desk = makeStrip(lampID(1), StripType::Lamp);
    const auto other = makeStrip(lampID(2), StripType::Lamp);
    for (LampControlStrip* strip : {desk.get(), other.get()}) {
        strip->label().setText("Desk");
        statusMenu.addStrip(*strip);
    }
    const auto& items = statusMenu.statusMenu().items();
    ASSERT_EQ(items.size(), 8U);
    EXPECT_EQ(items[4]->title(), "Desk");
    EXPECT_EQ(items[4]->tag(), -27);
    items[4]->choose();
    EXPECT_EQ(sockets.takeOfType(117).size(), 1U);
    EXPECT_GT(items[4]->image().side, 0);

    for (const auto& preset : items[2]->submenu()->items())
        preset->choose();
    items[0]->choose();
    items.back()->choose(); // before the program says how it ends
    statusMenu.quit = [this] { calls.emplace_back("quit"); };
    items.back()->choose();
    EXPECT_FALSE(statusMenu.applicationShouldHandleReopen());
    EXPECT_EQ(calls, (Lines{"on", "off", "show", "quit", "show"}));
    EXPECT_EQ(titles(*items[2]->submenu()), (Lines{"Turn all on", "Turn all off"}));

    const auto old = items[5];
    statusMenu.begin(); // anew, while a view still shows the old entries
    statusMenu.addStrip(*desk);
    statusMenu.addStrip(*other);
    EXPECT_EQ(titles(statusMenu.statusMenu()),
        (Lines{"Show manual control", "-", "Presets", "-", "Desk", "Desk", "-", "Quit"}));
    desk->deactivate();
    EXPECT_FALSE(other->embargo());
    statusMenu.statusMenu().choose(old);
    EXPECT_TRUE(other->embargo()); // it was meant, not the lamp of the same name
}

TEST_F(StatusItem, thePopUpNamesEveryTarget)
{
    LampsPopUp popUp(engine().registry(), defaults);
    popUp.populateLampsPopUp();
    EXPECT_EQ(titles(popUp.menu()), Lines{"group: All"});

    addLamp(1, {.label = "Desk"});
    receive(stateGrouping(53, 1, 0xA1, "Den"));
    receive(stateGrouping(50, 1, 0xB2, "Home"));
    receive(stateTags(1, 1));
    receive(stateTagLabels(1, 1, "Warm"));
    defaults.setObject("presets",
        Value::Array{
            Value::Dictionary{{"name", "New"}, {"integerId", "20260302120000"}, {"ID", "7"}},
            Value::Dictionary{{"name", "Old"}, {"ID", "20110101000000"}}, "rubbish"});
    popUp.populateLampsPopUp();
    EXPECT_EQ(titles(popUp.menu()),
        (Lines{"lamp: Desk", "group: Den", "location: Home", "tag: Warm", "group: All",
            "preset: New", "preset: Old", "preset: "}));
    const auto& items = popUp.menu().items();
    const auto tag = [&](std::size_t index) { return items.at(index)->representedTag(); };
    EXPECT_EQ(
        engine().registry().lampForIntegerTag(tag(0)), engine().registry().lampWithID(lampID(1)));
    EXPECT_EQ(engine().registry().groupForIntegerTag(tag(1))->label, "Den");
    EXPECT_EQ(engine().registry().locationForIntegerTag(tag(2))->label, "Home");
    EXPECT_EQ(engine().registry().tagForIntegerTag(tag(3))->label, "Warm");
    EXPECT_EQ(tag(4), 0);
    EXPECT_EQ(tag(5), 20260302120000);
    EXPECT_EQ(tag(6), 20110101000000);
}

} // namespace lumeroom::test
