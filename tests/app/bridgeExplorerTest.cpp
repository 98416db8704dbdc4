#include "app/bridgeExplorer.h"
#include "support/EngineHarness.h"

namespace lumeroom::test {

namespace {

/// A lamp as the tree shows it: each key with the text under it; "-" for what shows nothing.
std::map<std::string, std::string> shown(const bridgeExplorer& explorer, const std::string& label)
{
    std::map<std::string, std::string> result;
    const keyValPair lights = explorer.childOfItem(0, nullptr);
    for (std::size_t i = 0; i < explorer.numberOfChildrenOfItem(&lights); ++i) {
        const keyValPair lamp = explorer.childOfItem(i, &lights);
        if (bridgeExplorer::objectValueByItem(lamp) != label)
            continue;
        for (std::size_t j = 0; j < explorer.numberOfChildrenOfItem(&lamp); ++j) {
            const keyValPair entry = explorer.childOfItem(j, &lamp);
            EXPECT_TRUE(bridgeExplorer::isItemExpandable(entry));
            std::string text = "-";
            if (explorer.numberOfChildrenOfItem(&entry) == 1) {
                const keyValPair leaf = explorer.childOfItem(0, &entry);
                EXPECT_FALSE(bridgeExplorer::isItemExpandable(leaf));
                EXPECT_EQ(explorer.numberOfChildrenOfItem(&leaf), 0U);
                text = bridgeExplorer::objectValueByItem(leaf);
            }
            result.emplace(entry.key, text);
        }
    }
    return result;
}

} // namespace

TEST(ReadableLamp, isReworkedForReading)
{
    Lamp lamp;
    lamp.address = "127.0.0.1";
    lamp.id = "d073d5";
    lamp.label = "Desk";
    lamp.mac = Target{1};
    lamp.service = LampService{};
    lamp.capabilities = 7;
    lamp.onoff = true;
    lamp.colour = 21845.7;
    lamp.saturation = 55;
    lamp.brightness = 200.9;
    lamp.warmth = 5500;
    lamp.group = std::make_shared<Group>();
    lamp.group->label = "Study";
    lamp.tags = {std::make_shared<Tag>(Tag{1, "Reading", "Reading"}),
        std::make_shared<Tag>(Tag{2, "Late", "Late"})};
    lamp.zonecount = 0;
    const Value::Dictionary expected{
        {"address", "127.0.0.1"},
        {"id", "d073d5"},
        {"label", "Desk"},
        {"powerstate", "YES"},
        {"colour", "21845"},
        {"saturation", "200"},
        {"brightness", "200"},
        {"warmth", "3500 kelvin"},
        {"group", "Study"},
        {"tags", "Reading, Late"},
        {"zonecount", 0},
    };
    EXPECT_EQ(readableLamp(lamp.toDictionary()), expected);

    // A lamp that has just been heard shows zeros until it tells more.
    Lamp bare;
    bare.tags.emplace();
    const Value::Dictionary little{{"address", ""}, {"id", ""}, {"label", ""}, {"powerstate", "NO"},
        {"colour", "0"}, {"brightness", "0"}, {"saturation", "255"}, {"warmth", "9000 kelvin"}};
    EXPECT_EQ(readableLamp(bare.toDictionary()), little);
}

struct Explorer : EngineHarness {
    bridgeExplorer explorer{engine().registry()};
};

TEST_F(Explorer, showsTheLampsOfTheEngine)
{
    EXPECT_EQ(explorer.numberOfChildrenOfItem(nullptr), 0U); // nothing is loaded yet
    explorer.refresh();
    const keyValPair lights = explorer.childOfItem(0, nullptr);
    EXPECT_EQ(bridgeExplorer::objectValueByItem(lights), "Lights");
    EXPECT_EQ(explorer.numberOfChildrenOfItem(&lights), 0U);

    addLamp(1, {.brightness = 65535, .label = "Desk"});
    addLamp(2, {.label = "Desk"}); // one row for two lamps of one name: the later
    addStrip(3, 8);
    receive(lightState(3, {.label = "Strip"}));
    explorer.loadData();
    EXPECT_EQ(lights.getValue()->as<Value::Dictionary>()->size(), 0U); // kept as it was
    const keyValPair now = explorer.childOfItem(0, nullptr);
    EXPECT_EQ(explorer.numberOfChildrenOfItem(&now), 2U);
    EXPECT_EQ(shown(explorer, "Desk").at("address"), engine().registry().lightsArray()[1]->address);
    const auto strip = shown(explorer, "Strip");
    EXPECT_EQ(strip.at("label"), "Strip");
    EXPECT_EQ(strip.at("zonecount"), "-");
    EXPECT_EQ(strip.at("zones"), "-");
    EXPECT_EQ(explorer.childOfItem(99, &now).key, "");
}

TEST_F(Explorer, bringsItsWindowToTheFrontOnlyWhenOpened)
{
    int reloads = 0;
    int fronts = 0;
    explorer.reloadData = [&] { ++reloads; };
    explorer.makeKeyAndOrderFront = [&] { ++fronts; };
    explorer.refresh();
    EXPECT_EQ(std::pair(reloads, fronts), std::pair(1, 0));
    explorer.loadData();
    EXPECT_EQ(std::pair(reloads, fronts), std::pair(2, 1));
}

} // namespace lumeroom::test
