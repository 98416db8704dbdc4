#include "strips/StripHarness.h"

namespace lumeroom::test {

namespace {

const std::string kDen(32, 'a');
const std::string kHome(32, 'b');

} // namespace

/// Four lamps: the first in a group, the second in a location, the third tagged, the fourth alone.
struct Targets : StripHarness {
    Targets()
    {
        for (unsigned n = 1; n <= 4; ++n)
            addLamp(n);
        receive(stateGrouping(53, 1, 0xAA, "Den"));
        receive(stateGrouping(50, 2, 0xBB, "Home"));
        receive(stateTagLabels(1, 1, "Old"));
        receive(stateTags(3, 1));
        drainQueue();
    }

    /// Lines such as "power 2 on" for each of the lamps.
    static Lines forEach(
        const std::vector<int>& lamps, const std::string& first, const std::string& then)
    {
        Lines lines;
        for (const int lamp : lamps)
            lines.push_back(fmt::format("{}{}{}", first, lamp, then));
        return lines;
    }
};

TEST_F(Targets, eachKindOfGroupGoesItsOwnWay)
{
    const struct {
        std::string id;
        StripType type;
        std::vector<int> lamps;
        bool isKnown;
    } cases[] = {
        {kDen, StripType::Group, {1}, true},
        {kHome, StripType::Location, {2}, true},
        {"Old", StripType::Tag, {3}, true},
        {"0", StripType::Group, {1, 2, 3, 4}, true},
        {kHome, StripType::Group, {2}, false}, // but the engine's group routine finds locations
        {kDen, StripType::Location, {}, false},
        {kDen, StripType::None, {}, false},
    };
    for (const auto& c : cases) {
        const auto strip = makeStrip(c.id, c.type);
        EXPECT_EQ(strip->isGroup(), c.type != StripType::None);
        EXPECT_EQ(strip->target().isKnown(engine().registry()), c.isKnown);
        strip->brightnessSlider().moveTo(100.5F);
        strip->satSlider().moveTo(255);
        loop.advance(Seconds(0.1));
        const Lines once = forEach(c.lamps, "colour ", ": 0 0 25500 9000");
        Lines twice = once; // every slider sends the whole
        twice.insert(twice.end(), once.begin(), once.end());
        EXPECT_EQ(sent(), twice) << c.id;
        const std::string whole
            = "strips of " + c.id + " brightness=100.5 colour=0 saturation=255 warmth=0";
        EXPECT_EQ(owner.takeCalls(), strip->isGroup() ? Lines(2, whole) : Lines());

        strip->onOffButton().press();
        EXPECT_EQ(sent(), forEach(c.lamps, "power ", " on")) << c.id;
        strip->onOffButton().press();
        EXPECT_EQ(sent(), forEach(c.lamps, "power ", " off")) << c.id;
        EXPECT_EQ(owner.takeCalls(),
            strip->isGroup()
                ? Lines({"strips of " + c.id + " onoff=true", "strips of " + c.id + " onoff=false"})
                : Lines());
        EXPECT_TRUE(strip->embargo());

        strip->implementSettingsFromDictionaryWithTransitionTime(
            StripSettings::fromDictionary({{"brightness", 10}}));
        EXPECT_EQ(sent(), forEach(c.lamps, "colour ", ": 0 0 2550 9000")) << c.id;
    }
}

TEST_F(Targets, switchingAGroupOnCanBringItsColourAlong)
{
    defaults.setObject("groupOnOffChangesSettings", true);
    for (const auto& [id, type, lamp] :
        {std::tuple(kDen, StripType::Group, "1"), std::tuple(kHome, StripType::Location, "2"),
            std::tuple(std::string("Old"), StripType::Tag, "3")}) {
        const auto strip = makeStrip(id, type);
        strip->setObjectForKey(200, "brightness");
        strip->switchOn();
        EXPECT_EQ(sent(),
            (Lines{fmt::format("power {} on", lamp),
                fmt::format("colour {}: 0 65025 51000 9000", lamp)}));
        strip->switchOff();
        EXPECT_EQ(sent(), (Lines{fmt::format("power {} off", lamp)}));
    }
}

TEST_F(Targets, aZoneTakesColourButNoPower)
{
    addStrip(5, 8);
    drainQueue();
    const auto strip = makeStrip(lampID(5) + "-3", StripType::Zone);
    EXPECT_FALSE(strip->isGroup());
    strip->colourSlider().moveTo(500);
    EXPECT_EQ(sent(), (Lines{"zone 5/3: 500 65025 0 9000"}));
    EXPECT_TRUE(strip->embargo());
    strip->onOffButton().press();
    EXPECT_EQ(sent(), Lines());
}

TEST_F(Targets, renaming)
{
    const struct {
        std::string id;
        StripType type;
        unsigned message; ///< that carries the name
    } cases[] = {{lampID(4), StripType::Lamp, 24}, {kDen, StripType::Group, 52},
        {kHome, StripType::Location, 49}};
    for (const auto& c : cases) {
        const auto strip = makeStrip(c.id, c.type);
        strip->label().setText("Old name");
        strip->showReNamePopover();
        strip->popoverShouldClose("");
        strip->popoverShouldClose("Old name");
        EXPECT_EQ(owner.takeCalls(), (Lines{"name? Old name"}));
        strip->popoverShouldClose("New name");
        loop.advance(Seconds(10));
        EXPECT_FALSE(sockets.takeOfType(c.message).empty()) << c.message;
        EXPECT_EQ(owner.takeCalls(), (Lines{"renamed " + c.id}));
        EXPECT_EQ(strip->label().text(), "New name");
    }
    makeStrip("Old", StripType::Tag)->showReNamePopover();
    EXPECT_EQ(owner.takeCalls(), (Lines{"alert Legacy functionality"}));
}

TEST_F(Targets, anEffectIsChosenFromTheMenuAndEndsBeforeTheLampsGoOff)
{
    using Kind = EffectMenuItem::Kind;
    const auto effect = [](const char* name) { return Value(Value::Dictionary{{"name", name}}); };
    defaults.setObject("effects", Value::Array{effect("Fire"), effect("Dusk")});
    const std::vector<EffectMenuItem> idle{{Kind::Effect, "Fire"}, {Kind::Effect, "Dusk"},
        {Kind::Separator, ""}, {Kind::EditEffects, "Add / edit effects..."}};
    std::vector<EffectMenuItem> playing{{Kind::StopEffect, "Stop effect"}, {Kind::Separator, ""}};
    playing.insert(playing.end(), idle.begin(), idle.end());

    for (const auto& [id, type] :
        {std::pair(lampID(1), StripType::Lamp), std::pair(kDen, StripType::Group)}) {
        const auto strip = makeStrip(id, type);
        strip->switchOn();
        sockets.take();
        owner.takeCalls();
        strip->effectButton().press();
        EXPECT_EQ(effectMenu, idle);
        strip->chooseFromEffectMenu(effectMenu.at(0));
        strip->implementEffect("unknown"); // leaves it playing
        EXPECT_EQ(owner.takeCalls(), (Lines{"start Fire"}));
        strip->effectButton().press();
        EXPECT_EQ(effectMenu, playing);
        strip->chooseFromEffectMenu(effectMenu.at(3));
        EXPECT_EQ(owner.takeCalls(), (Lines{"stop Fire after 0 datagrams", "start Dusk"}));
        strip->onOffButton().press();
        EXPECT_EQ(owner.takeCalls().at(0), "stop Dusk after 0 datagrams");
        EXPECT_EQ(sent(), (Lines{"power 1 off"}));
        strip->implementEffect("Fire");
        owner.takeCalls();
        strip->deactivate();
        EXPECT_EQ(owner.takeCalls(), (Lines{"stop Fire after 0 datagrams"}));
    }
    owner.canEditEffects = false;
    for (const EffectMenuItem& item : makeStrip(lampID(1), StripType::Lamp)->effectMenu())
        EXPECT_EQ(item.enabled, item.kind == Kind::Separator) << item.title; // nor do they play
}

TEST_F(Targets, theStatusMenuTogglesAndShowsTheStrip)
{
    const auto item = std::make_shared<MenuItemModel>(controltag::kStatusMenuItem, "Lamp");
    {
        const auto strip = makeStrip(lampID(1), StripType::Lamp);
        strip->setStatusBarMenuItem(item);
        report(*strip, {{"brightness", 127.5}, {"colour", 0}, {"saturation", 0}});
        for (const bool on : {true, false, true}) {
            item->choose();
            EXPECT_EQ(sent().at(0), on ? "power 1 on" : "power 1 off");
            EXPECT_EQ(item->isChecked(), on);
            EXPECT_EQ(item->image().oval, on ? (Rgba{1, 0, 0, 0.5F}) : (Rgba{0, 0, 0, 0}));
        }
    }
    item->choose(); // the menu has outlived the strip
    EXPECT_EQ(item->image().oval.alpha, 0);
    EXPECT_FALSE(item->hasCheck());
    EXPECT_TRUE(sent().empty());
}

} // namespace lumeroom::test
