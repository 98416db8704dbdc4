#include "support/EngineAndLamps.h"
#include "support/EngineHarness.h"
#include "support/QtTestInput.h"

namespace lumeroom {

using test::Time;
using test::VirtualLamp;

/// What lamps hold after the engine has changed a group, a location or a tag, and what they then
/// report.
struct GroupingsEndToEnd : test::EngineAndLamps {
    GroupingsEndToEnd()
    {
        engine.setDelegate(&delegate);
        engine.startHeartbeat();
        for (unsigned n = 1; n <= 3; ++n)
            EXPECT_TRUE(test::workUntil(
                [&] { return engine.registry().lampWithID(lampID(n)) != nullptr; }));
    }
    /// The three lamps come to hold this.
    template <typename F> void expectHeld(F look, const std::vector<std::string>& expected)
    {
        std::vector<std::string> held;
        EXPECT_TRUE(test::workUntil([&] {
            held.clear();
            for (std::size_t i = 0; i < network.count(); ++i)
                held.push_back(onLamp(i, [&](VirtualLamp& lamp, Time) { return look(lamp); }));
            return held == expected;
        })) << held.at(0)
            << "," << held.at(1) << "," << held.at(2);
    }

    test::RecordingDelegate delegate;
    test::Reference first{lampID(1)};
    test::Reference second{lampID(2)};
    test::Reference third{lampID(3)};
};

TEST_F(GroupingsEndToEnd, fromMakingToRemoval)
{
    const auto group = [](const VirtualLamp& lamp) { return lamp.group.label; };
    const auto location = [](const VirtualLamp& lamp) { return lamp.location.label; };
    const auto tags = [](const VirtualLamp& lamp) { return std::to_string(lamp.tags); };
    const auto tagLabel = [](const VirtualLamp& lamp) {
        const auto found = lamp.tagLabels.find(1);
        return found == lamp.tagLabels.end() ? std::string("-") : found->second;
    };
    const LampRegistry& registry = engine.registry();
    engine.groupings().makeGroupNamed({&first, &second}, "Study 書斎");
    engine.groupings().makeLocationNamed({&first, &third}, "House");
    engine.tags().makeTagNamed({&first, &second}, "Reading");
    expectHeld(group, {"Study 書斎", "Study 書斎", ""});
    expectHeld(location, {"House", "", "House"});
    expectHeld(tags, {"1", "1", "0"});
    expectHeld(tagLabel, {"Reading", "Reading", "-"});

    const auto study = registry.IDForGroupNamed("Study 書斎");
    const auto house = registry.IDForLocationNamed("House");
    ASSERT_TRUE(study && house);
    engine.groupings().editGroupLamps(*study, {&second, &third});
    engine.groupings().editLocationLamps(*house, {&second, &third});
    engine.tags().editTagLamps("Reading", {&third});
    expectHeld(group, {"", "Study 書斎", "Study 書斎"});
    expectHeld(location, {"", "House", "House"});
    expectHeld(tags, {"0", "0", "1"});

    engine.groupings().renameGroupNewName(*study, "Den");
    engine.groupings().renameLocationNewName(*house, "Home");
    expectHeld(group, {"", "Den", "Den"});
    expectHeld(location, {"", "Home", "Home"});
    engine.groupings().removeGroupWithID(*study);
    engine.tags().removeTag("Reading");
    expectHeld(group, {"", "", ""});
    expectHeld(tags, {"0", "0", "0"});
    expectHeld(tagLabel, {"-", "-", "-"});
    EXPECT_FALSE(registry.IDForGroupNamed("Den") || registry.tagNamed("Reading"));

    // When the 15 seconds are over in which nobody asks, what a lamp reports counts again.
    engine.groupings().makeGroupNamed({&third}, "Hall");
    expectHeld(group, {"", "", "Hall"});
    network.withLamp(2, [](VirtualLamp& lamp, Time) {
        lamp.group.label = "Corridor";
        lamp.group.updatedAt += 1;
    });
    EXPECT_TRUE(test::workUntil([&] {
        const auto lamp = registry.lampWithID(lampID(3));
        return lamp->group && lamp->group->label == "Corridor";
    }));
}

} // namespace lumeroom
