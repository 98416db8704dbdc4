#include "app/bridgeExplorer.h"
#include "engine/Records.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

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
    lamp.location = std::make_shared<Location>();
    lamp.location->label = "Home";
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
        {"location", "Home"},
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

} // namespace lumeroom::test
