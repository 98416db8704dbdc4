#include "support/EngineHarness.h"

#include <fmt/format.h>

namespace lumeroom::test {

namespace {

std::string label(const SentDatagram& sent, std::size_t at)
{
    const auto* text = reinterpret_cast<const char*>(sent.data.data()) + at;
    return {text, strnlen(text, 32)};
}

std::uint64_t u64(const SentDatagram& sent, std::size_t at)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 8; ++i)
        value |= std::uint64_t(sent.data.at(at + i)) << (8 * i);
    return value;
}

} // namespace

using Lines = std::vector<std::string>;

struct Groupings : EngineHarness {
    Groupings()
    {
        for (unsigned n = 1; n <= 3; ++n)
            addLamp(n, {.label = "Lamp " + std::to_string(n)});
        drainQueue();
    }
    std::vector<SentDatagram> queued()
    {
        EXPECT_TRUE(sockets.take().empty()); // nothing leaves before its turn
        loop.advance(Seconds(2));
        return sockets.take();
    }
    /// What was sent at once, as "tags lamp: field" and "label lamp: field name".
    Lines tagCommands()
    {
        Lines result;
        for (const SentDatagram& sent : sockets.take()) {
            const std::string lamp = sent.host.substr(sent.host.rfind('.') + 1);
            const std::uint64_t field = u64(sent, 36);
            result.push_back(sent.type() == 27
                    ? fmt::format("tags {}: {}", lamp, field)
                    : fmt::format("label {}: {} {}", lamp, field, label(sent, 44)));
        }
        return result;
    }
    Reference one{lampID(1)}, two{lampID(2)}, three{lampID(3)};
    Reference group{lampID(3), true}, stranger{lampID(9)};
};

TEST_F(Groupings, aGroupIsMadeOnItsLampsAtOnceInTheRecords)
{
    delegate.states = 0;
    engine().groupings().makeGroupNamed({&one, &group, &stranger, &two}, "Den");
    ASSERT_EQ(engine().registry().groupsArray().size(), 1U);
    const auto made = engine().registry().groupsArray()[0];
    EXPECT_EQ(engine().registry().lampWithID(lampID(1))->group, made);
    EXPECT_EQ(delegate.states, 1);
    EXPECT_TRUE(groupsAreRefused());
    EXPECT_EQ(one.embargoes, 1); // its strip rests too
    EXPECT_EQ(three.embargoes, 0);

    const auto sent = queued();
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_EQ(sent[1].host, lampAddress(2));
    EXPECT_EQ(hex(std::span(sent[0].data).subspan(36, 16)), made->id);
    EXPECT_EQ(label(sent[0], 52), "Den");
    EXPECT_EQ(u64(sent[0], 84), static_cast<std::uint64_t>(made->integerId));
}

TEST_F(Groupings, anEditMovesLampsInAndOut)
{
    const struct {
        unsigned report;
        unsigned set;
        void (GroupingCommands::*edit)(std::string_view, const LampReferences&);
    } cases[] = {{53, 52, &GroupingCommands::editGroupLamps},
        {50, 49, &GroupingCommands::editLocationLamps}};
    for (const auto& c : cases) {
        receive(stateGrouping(c.report, 1, 0xAA, "Den"));
        receive(stateGrouping(c.report, 2, 0xAA, "Den"));
        receive(stateGrouping(c.report, 3, 0xBB, "Other"));
        (engine().groupings().*c.edit)(std::string(32, 'a'), {&two, &three});
        EXPECT_TRUE(groupsAreRefused());
        EXPECT_EQ(std::exchange(two.embargoes, 0), 1);
        const auto sent = queued();
        ASSERT_EQ(sent.size(), 3U);
        EXPECT_EQ(sent[0].host, lampAddress(2));
        EXPECT_EQ(sent[1].host, lampAddress(3)); // moved in from the other, which is not touched
        EXPECT_EQ(u64(sent[1], 84) % 1000000000, 0U);
        EXPECT_EQ(sent[2].host, lampAddress(1));
        EXPECT_EQ(sent[2].type(), c.set);
        EXPECT_EQ(hex(std::span(sent[2].data).subspan(36, 48)), std::string(96, '0'));
        EXPECT_LE(std::abs(std::int64_t(u64(sent[2], 84))), std::int64_t(1) << 31);
        loop.advance(Seconds(20));
    }
    EXPECT_FALSE(engine().registry().lampWithID(lampID(1))->group);
    EXPECT_FALSE(engine().registry().lampWithID(lampID(1))->location);
    EXPECT_EQ(engine().registry().lightsArrayForGroup(std::string(32, 'a')).size(), 2U);
    EXPECT_TRUE(engine().registry().lightsArrayForGroup(std::string(32, 'b')).empty());
}

TEST_F(Groupings, removing)
{
    receive(stateGrouping(53, 1, 0xAA, "Den"));
    receive(stateGrouping(50, 1, 0xBB, "Home"));
    engine().groupings().removeGroupWithID(engine().registry().groupsArray()[0]->id);
    EXPECT_TRUE(engine().registry().groupsArray().empty());
    EXPECT_EQ(queued().size(), 1U); // the zero group

    // A location is forgotten, but its lamps keep it: only groups are edited here.
    engine().groupings().removeGroupWithID(engine().registry().locationssArray()[0]->id);
    EXPECT_EQ(engine().registry().locationssArray().size(), 1U);
    engine().groupings().removeLocationWithID(engine().registry().locationssArray()[0]->id);
    EXPECT_TRUE(engine().registry().locationssArray().empty());
    EXPECT_TRUE(queued().empty());
    EXPECT_TRUE(engine().registry().lampWithID(lampID(1))->location);
}

TEST_F(Groupings, renaming)
{
    const auto sentLabels = [this] {
        Lines result;
        for (const SentDatagram& sent : queued())
            result.push_back(fmt::format("{}: {} {}", sent.type(), label(sent, 52), u64(sent, 84)));
        return result;
    };
    receive(stateGrouping(53, 1, 0xAA, "Den", 99));
    receive(stateGrouping(53, 2, 0xAA, "Den", 99));
    receive(stateGrouping(50, 3, 0xBB, "Home"));
    engine().groupings().renameGroupNewName(std::string(32, 'a'), "Study");
    EXPECT_EQ(sentLabels(), (Lines{"52: Study 99", "52: Study 99"})); // the time stays
    EXPECT_FALSE(groupsAreRefused());
    engine().groupings().renameGroupNewName("nobody", "x");
    engine().groupings().renameLocationNewName(std::string(32, 'b'), "House");
    EXPECT_EQ(sentLabels(), Lines{"49: House 7"});
    EXPECT_EQ(engine().registry().locationssArray()[0]->label, "House");

    engine().commands().renameLampNewName(lampID(1), std::string(40, 'n'));
    EXPECT_EQ(label(sockets.take().at(0), 36), std::string(32, 'n'));
    EXPECT_EQ(engine().registry().lampWithID(lampID(1))->label, "Lamp 1"); // until the lamp says so
}

TEST_F(Groupings, tagsLeaveAtOnce)
{
    receive(stateTagLabels(1, 1, "Old"));
    receive(stateTags(1, 1));
    receive(stateTags(3, 1));
    drainQueue();
    engine().tags().makeTagNamed({&one, &two}, "Night");
    // With the tag that the lamp has.
    EXPECT_EQ(
        tagCommands(), (Lines{"tags 1: 3", "label 1: 2 Night", "tags 2: 2", "label 2: 2 Night"}));
    EXPECT_EQ(engine().registry().lightsArrayForTag("Night").size(), 2U);
    EXPECT_EQ(queued().size(), 3U); // tags asked for anew

    engine().tags().editTagLamps("Night", {&two, &three});
    EXPECT_EQ(tagCommands(), (Lines{"tags 2: 2", "tags 3: 3", "tags 1: 1"}));
    EXPECT_EQ(three.embargoes, 1);
    loop.advance(Seconds(20));
    EXPECT_FALSE(groupsAreRefused());
    engine().tags().editTagLamps("Night", {&two, &three});
    sockets.take();
    receive(stateGrouping(53, 1, 0xEF, "Late"));
    EXPECT_EQ(engine().registry().lampWithID(lampID(1))->group->label, "Probe");

    engine().tags().removeTag("Night");
    EXPECT_EQ(tagCommands(), // each lamp's field without the bit, then the empty label
        (Lines{
            "tags 1: 1", "tags 2: 0", "tags 3: 1", "label 1: 2 ", "label 2: 2 ", "label 3: 2 "}));
    EXPECT_FALSE(engine().registry().tagNamed("Night"));
}

} // namespace lumeroom::test
