#include "engine/QVLIFXEngineDelegate.h"
#include "support/EngineAndLamps.h"
#include "support/QtTestInput.h"

namespace lumeroom {

using test::Time;
using test::VirtualLamp;

namespace {

struct LampChoice : LampReference {
    explicit LampChoice(std::string id)
        : m_id(std::move(id))
    {
    }
    bool isGroup() const override { return false; }
    std::string getID() const override { return m_id; }
    void imposeTemporaryEmbargo() override { }

private:
    std::string m_id;
};

struct Quiet : QVLIFXEngineDelegate {
    void newLampsAdded() override { }
    void lampStatesChanged() override { }
    void lampZoneStatesChanged() override { }
    void newZoneAdded() override { }
    void powerOfMultiZoneLampChanged() override { }
    void engineIsSsearching(bool) override { }
    void lampCapabilitiesChanged() override { }
    int runModal(const Alert&) override { return 0; }
};

} // namespace

/// What lamps hold after the engine has changed a group, a location or a tag, and what they then
/// report.
struct GroupingsEndToEnd : test::EngineAndLamps {
    GroupingsEndToEnd()
    {
        engine.setDelegate(&delegate);
        engine.startHeartbeat();
        EXPECT_TRUE(test::workUntil([this] {
            return engine.registry().lampWithID(lampID(1))
                && engine.registry().lampWithID(lampID(2))
                && engine.registry().lampWithID(lampID(3));
        }));
    }
    /// What the three lamps hold, as "a,b,c".
    template <typename F> std::string held(F look)
    {
        std::string text;
        for (std::size_t i = 0; i < network.count(); ++i)
            text += (i == 0 ? "" : ",")
                + onLamp(i, [&](VirtualLamp& lamp, Time) { return look(lamp); });
        return text;
    }
    std::string groups()
    {
        return held([](const VirtualLamp& lamp) { return lamp.group.label; });
    }
    std::string locations()
    {
        return held([](const VirtualLamp& lamp) { return lamp.location.label; });
    }
    std::string tags()
    {
        return held([](const VirtualLamp& lamp) { return std::to_string(lamp.tags); });
    }
    std::string tagLabels(std::uint64_t bit)
    {
        return held([bit](const VirtualLamp& lamp) {
            const auto found = lamp.tagLabels.find(bit);
            return found == lamp.tagLabels.end() ? std::string("-") : found->second;
        });
    }
    template <typename F> void expectHeld(F look, const std::string& expected)
    {
        EXPECT_TRUE(test::workUntil([&] { return look() == expected; })) << look();
    }

    Quiet delegate;
    LampChoice first{lampID(1)};
    LampChoice second{lampID(2)};
    LampChoice third{lampID(3)};
};

TEST_F(GroupingsEndToEnd, aGroupFromMakingToRemoval)
{
    const auto look = [this] { return groups(); };
    engine.groupings().makeGroupNamed({&first, &second}, "Study 書斎");
    expectHeld(look, "Study 書斎,Study 書斎,");
    const auto id = engine.registry().IDForGroupNamed("Study 書斎");
    ASSERT_TRUE(id);

    engine.groupings().editGroupLamps(*id, {&second, &third});
    expectHeld(look, ",Study 書斎,Study 書斎");
    engine.groupings().renameGroupNewName(*id, "Den");
    expectHeld(look, ",Den,Den");
    EXPECT_EQ(engine.registry().lightsArrayForGroup(*id).size(), 2U);
    engine.groupings().removeGroupWithID(*id);
    expectHeld(look, ",,");
    EXPECT_FALSE(engine.registry().IDForGroupNamed("Den"));

    // When the 15 seconds are over in which nobody asks, what a lamp reports counts again.
    engine.groupings().makeGroupNamed({&third}, "Hall");
    expectHeld(look, ",,Hall");
    const auto hall = engine.registry().lampWithID(lampID(3))->group;
    network.withLamp(2, [](VirtualLamp& lamp, Time) {
        lamp.group.label = "Corridor";
        lamp.group.updatedAt += 1;
    });
    EXPECT_TRUE(test::workUntil([&] {
        const auto lamp = engine.registry().lampWithID(lampID(3));
        return lamp->group && lamp->group->label == "Corridor" && lamp->group->id == hall->id;
    }));
}

TEST_F(GroupingsEndToEnd, aLocationFromMakingOn)
{
    const auto look = [this] { return locations(); };
    engine.groupings().makeLocationNamed({&first, &third}, "House");
    expectHeld(look, "House,,House");
    const auto id = engine.registry().IDForLocationNamed("House");
    ASSERT_TRUE(id);
    engine.groupings().editLocationLamps(*id, {&second, &third});
    expectHeld(look, ",House,House");
    engine.groupings().renameLocationNewName(*id, "Home");
    expectHeld(look, ",Home,Home");
}

TEST_F(GroupingsEndToEnd, aTagFromMakingToRemoval)
{
    const auto look = [this] { return tags(); };
    engine.tags().makeTagNamed({&first, &second}, "Reading");
    expectHeld(look, "1,1,0");
    expectHeld([this] { return tagLabels(1); }, "Reading,Reading,-");
    engine.tags().editTagLamps("Reading", {&third});
    expectHeld(look, "0,0,1");
    engine.tags().removeTag("Reading");
    expectHeld(look, "0,0,0");
    expectHeld([this] { return tagLabels(1); }, "-,-,-");
    EXPECT_FALSE(engine.registry().tagNamed("Reading"));
}

} // namespace lumeroom
