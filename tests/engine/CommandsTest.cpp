#include "support/EngineHarness.h"

#include <algorithm>

namespace lumeroom::test {

namespace {

Settings settings(const Value::Dictionary& dictionary)
{
    return Settings::fromDictionary(dictionary);
}

/// A colour command's hue, saturation, brightness, kelvin and milliseconds.
std::vector<unsigned> fields(const SentDatagram& sent)
{
    const std::size_t at = sent.type() == 102 ? 37 : 38;
    return {sent.u16(at), sent.u16(at + 2), sent.u16(at + 4), sent.u16(at + 6), sent.u16(at + 8)};
}

using Fields = std::vector<unsigned>;

} // namespace

struct Commands : EngineHarness {
    /// What was sent at once: type and host of each.
    std::vector<std::string> sent()
    {
        std::vector<std::string> result;
        for (const auto& datagram : sockets.take())
            result.push_back(std::to_string(datagram.type()) + " " + datagram.host);
        return result;
    }
};

TEST_F(Commands, aPartialColourFillsUpFromTheLampAndTheFallbacks)
{
    receive(stateService(1), lampAddress(1));
    const auto lamp = engine().registry().lampWithID(lampID(1));
    drainQueue();
    engine().commands().sendSettingsToLamp(settings({{"warmth", 5000}}), lampID(1));
    EXPECT_EQ(fields(sockets.take().at(0)), (Fields{21845, 0, 65025, 4000, 400}));
    EXPECT_EQ(lamp->warmth, 5000);
    EXPECT_FALSE(lamp->colour); // only what was asked for is taken over

    receive(lightState(1, {.hue = 7, .saturation = 65535, .brightness = 65535, .kelvin = 2500}));
    engine().commands().sendSettingsToLamp(
        settings({{"brightness", 100.9}, {"duration", 1.5}}), lampID(1));
    EXPECT_EQ(fields(sockets.take().at(0)), (Fields{7, 65025, 25500, 2500, 1500}));
    engine().commands().sendSettingsToLamp(settings({{"colour", 9}}), lampID(1));
    EXPECT_EQ(fields(sockets.take().at(0)), (Fields{9, 65025, 25500, 2500, 400})); // builds on it
    EXPECT_EQ(delegate.states, 1); // by the report alone
}

TEST_F(Commands, transitionTimes)
{
    addLamp(1);
    drainQueue();
    const struct {
        Value transition;
        Value::Dictionary colour;
        unsigned colourMilliseconds;
        unsigned powerMilliseconds;
    } cases[] = {
        {0, {{"brightness", 1}}, 100, 0},
        {0.4, {{"brightness", 1}, {"duration", 0}}, 100, 400},
        {"2.5", {{"brightness", 1}, {"duration", 0.05}}, 100, 2500},
        {"2.5", {{"brightness", 1}}, 2500, 2500},
    };
    for (const auto& c : cases) {
        defaults.setObject("defaultTransition", c.transition);
        engine().commands().sendSettingsToLamp(settings(c.colour), lampID(1));
        EXPECT_EQ(fields(sockets.take().at(0))[4], c.colourMilliseconds);
        engine().commands().lampOn(lampID(1), false);
        EXPECT_EQ(sockets.take().at(0).u16(38), c.powerMilliseconds);
    }
}

TEST_F(Commands, powerGoesFirstAndOnlyIfItDiffers)
{
    const auto lamp = addLamp(1);
    drainQueue();
    engine().commands().sendSettingsToLamp(settings({{"onoff", true}, {"duration", 3}}), lampID(1));
    EXPECT_TRUE(sent().empty());
    engine().commands().sendSettingsToLamp(settings({{"onoff", false}, {"colour", 5}}), lampID(1));
    EXPECT_EQ(sent(), (std::vector<std::string>{"117 127.0.9.1", "102 127.0.9.1"}));
    EXPECT_EQ(lamp->onoff, true); // until the lamp says so
    engine().commands().groupOn("0", true); // asked for outright it is sent in any case
    EXPECT_EQ(sockets.take().at(0).u16(36), 65535U);
}

TEST_F(Commands, whatIsNoLampIsSentNothing)
{
    addLamp(1);
    drainQueue();
    for (const std::string& id :
        {std::string("d073d50000"), std::string(), std::string("-"), std::string("0"), lampID(2)}) {
        engine().commands().sendSettingsToLamp(settings({{"brightness", 9}}), id);
        engine().commands().lampOn(id, true);
    }
    engine().commands().groupOn("nobody", true);
    engine().commands().sendSettingsToGroup(settings({{"brightness", 9}}), "nobody");
    EXPECT_TRUE(sent().empty());
}

TEST_F(Commands, aLampHeardAtTwoAddressesIsToldAtBoth)
{
    using List = std::vector<std::string>;
    addLamp(1, {.hue = 7, .saturation = 65535, .brightness = 65535, .kelvin = 2500});
    addStrip(2, 8);
    for (const unsigned n : {1U, 2U}) {
        receive(stateGrouping(53, n, 0xAA, "Den"));
        receive(stateService(n), lampAddress(80 + n));
        receive(stateGrouping(53, n, 0xAA, "Den"), lampAddress(80 + n));
        receive(stateService(n), lampAddress(90 + n)); // which is told nothing until it answers
    }
    receive(stateTagLabels(1, 1, "Night"));
    receive(stateTags(1, 1));
    drainQueue();
    receive(stateVersion(2, 31));
    loop.advance(Seconds(1));
    EXPECT_EQ(sockets.takeOfType(502).size(), 2U); // its zones are asked for at both
    for (const std::string& id : {lampID(1), std::string("d073d5000001")}) {
        engine().commands().sendSettingsToLamp(settings({{"brightness", 9}}), id);
        const auto both = sockets.take();
        ASSERT_EQ(both.size(), 2U);
        EXPECT_EQ(both[0].data, both[1].data);
        EXPECT_NE(both[0].host, both[1].host);
    }
    const auto hosts = [this](unsigned type) {
        List found;
        for (const auto& datagram : sockets.takeOfType(type))
            found.push_back(datagram.host);
        std::ranges::sort(found);
        return found;
    };
    const List desk{"127.0.9.1", "127.0.9.81"};
    const List all{"127.0.9.1", "127.0.9.2", "127.0.9.81", "127.0.9.82"};
    engine().commands().groupOn("0", false);
    EXPECT_EQ(hosts(117), all);
    engine().commands().groupOn(std::string(32, 'a'), true);
    EXPECT_EQ(hosts(117), all);
    engine().commands().tagOn("Night", true);
    EXPECT_EQ(hosts(117), desk);
    engine().commands().sendSettingsToGroup(settings({{"onoff", true}}), std::string(32, 'a'));
    EXPECT_TRUE(hosts(117).empty()); // both are on, wherever they are
    engine().commands().sendSettingsToGroup(settings({{"brightness", 3}}), "0");
    EXPECT_EQ(hosts(501).size(), 16U);
    engine().commands().renameLampNewName(lampID(1), "Desk");
    EXPECT_EQ(hosts(24), desk);
    Reference one{lampID(1)};
    engine().tags().editTagLamps("Night", {&one});
    EXPECT_EQ(hosts(27), desk);
    engine().groupings().editGroupLamps(std::string(32, 'a'), {&one});
    loop.advance(Seconds(30));
    EXPECT_EQ(hosts(52), all); // one stays in, the other is sent out
}

TEST_F(Commands, zonesKeepWhatIsNotSetAndLateOnesCatchUp)
{
    const auto lamp = addStrip(1, 8);
    receive(stateZone(1, 8, 2, 9000)); // now last in the array
    drainQueue();
    engine().commands().sendSettingsToLamp(settings({{"brightness", 10}}), lampID(1));
    const auto each = sockets.take();
    ASSERT_EQ(each.size(), 8U);
    for (unsigned n = 0; n < 8; ++n) {
        EXPECT_EQ(each[n].type(), 501U);
        EXPECT_EQ(each[n].data[36], n); // in the order of the zones
        EXPECT_EQ(fields(each[n]), (Fields{n == 2 ? 9000 : 100 + n, 65025, 2550, 3500, 400}));
    }
    EXPECT_EQ(lamp->zonesInOrder()[2].brightness, 10);
    EXPECT_EQ(lamp->brightness, 10);

    const Settings whole
        = settings({{"colour", 1}, {"saturation", 0}, {"brightness", 255}, {"warmth", 0}});
    engine().commands().sendSettingsToLamp(whole, lampID(1));
    EXPECT_EQ(sent(), (std::vector<std::string>{"102 127.0.9.1"}));
    EXPECT_EQ(lamp->zonesInOrder()[2].colour, 9000); // stale until the next report

    // One zone by its ID, in both forms of the lamp's.
    engine().commands().sendSettingsToLamp(
        settings({{"colour", 77}, {"onoff", false}}), "d073d5000001-3");
    EXPECT_EQ(sent(), (std::vector<std::string>{"501 127.0.9.1"}));
    engine().commands().sendSettingsToLamp(settings({{"brightness", 20}}), lampID(1) + "-3");
    EXPECT_EQ(fields(sockets.take().at(0)), (Fields{77, 65025, 5100, 9000, 400})); // builds on both
    engine().commands().sendSettingsToLamp(settings({{"warmth", 5000}}), lampID(1));
    const auto painted = sockets.take();
    EXPECT_EQ(fields(painted.at(2)), (Fields{1, 65025, 65025, 4000, 400})); // as it was sent
    EXPECT_EQ(fields(painted.at(3)), (Fields{77, 65025, 5100, 4000, 400}));
    engine().commands().sendSettingsToLamp(settings({{"onoff", false}}), lampID(1) + "-3");
    engine().commands().sendSettingsToLamp(settings({{"colour", 1}}), lampID(1) + "-99");
    EXPECT_TRUE(sent().empty());
    receive(stateZone(1, 12, 2, 9000));
    engine().commands().sendSettingsToLamp(settings({{"brightness", 5}}), lampID(1));
    EXPECT_EQ(sockets.take().size(), 8U);
    receive(stateMultizone(1, 12, 8, 200));
    EXPECT_EQ(fields(sockets.take().at(3)), (Fields{203, 65025, 1275, 3500, 400})); // caught up
    EXPECT_EQ(lamp->brightness, 5);
    // Later ones, of which nothing is left to be told: at 24 all had come, at 32 the whole lamp was
    // painted, at 40 it was silent.
    for (const unsigned count : {24U, 32U, 40U}) {
        receive(stateZone(1, count, 2, 9000));
        if (count > 24)
            engine().commands().sendSettingsToLamp(settings({{"brightness", 6}}), lampID(1));
        if (count > 32)
            lamp->polling.unanswered = 4; // the lamp is silent for some time
        else if (count > 24)
            engine().commands().sendSettingsToLamp(whole, lampID(1));
        sockets.take();
        receive(stateMultizone(1, count, count - 8, 200));
        EXPECT_TRUE(sent().empty()) << count;
    }
}

TEST_F(Commands, summariesAreRunningMeansAndALocationIsSwitched)
{
    for (unsigned n = 1; n <= 4; ++n)
        addLamp(n, {.hue = n * 1000, .brightness = n * 10000, .power = n % 2 ? 65535U : 0U});
    for (const unsigned n : {1U, 2U})
        receive(stateGrouping(53, n, 0xAA, "Den"));
    for (const unsigned n : {2U, 3U})
        receive(stateGrouping(50, n, 0xBB, "Home"));
    receive(stateTagLabels(1, 1, "Den"));
    receive(stateTags(4, 1));
    drainQueue();
    const std::string group(32, 'a');
    const std::string location(32, 'b');
    const Summaries& summaries = engine().summaries();
    EXPECT_EQ(
        summaries.settingsForGroup("0").colour, 3125); // ((1 + 2) / 2 + 3) / 2, and 4 for half
    EXPECT_EQ(summaries.settingsForGroup(group).brightness, (38 + 77) * 0.5);
    EXPECT_EQ(summaries.settingsForLocation(location).onoff, true); // the last lamp's
    EXPECT_EQ(summaries.settingsForTag("Den").onoff, false);

    receive(stateGrouping(53, 4, 0xCC, "Empty"));
    receive(stateGrouping(53, 4, 0xDD, "Other"));
    const std::string empty(32, 'c');
    const struct {
        Value rule;
        bool oneOfTwo;
        bool empty;
    } cases[] = {{0, true, false}, {1, false, false}, {2, false, true}, {3, false, false}};
    for (const auto& c : cases) {
        defaults.setObject("groupPowerStateBasedOn", c.rule);
        EXPECT_EQ(summaries.settingsForGroup(group).onoff, c.oneOfTwo);
        EXPECT_EQ(summaries.settingsForGroup(empty).onoff, c.empty);
        EXPECT_EQ(summaries.settingsForGroup(empty).brightness, 0);
    }
    engine().commands().locationOn(location, true);
    EXPECT_EQ(sent(), (std::vector<std::string>{"117 127.0.9.2", "117 127.0.9.3"}));
}

TEST_F(Commands, aLampThatReportsWithinItsFadeIsAskedAgainOnceItIsOver)
{
    addLamp(1);
    addLamp(2);
    drainQueue();
    for (const auto& change : {settings({{"onoff", false}}), settings({{"brightness", 100}})}) {
        engine().commands().sendSettingsToLamp(change, lampID(1));
        sockets.take();
        receive(lightState(1, {.brightness = 40000}));
        receive(lightState(2, {}));
        loop.advance(Seconds(0.5));
        EXPECT_EQ(sent(), std::vector<std::string>{});
        loop.advance(Seconds(0.2));
        EXPECT_EQ(sent(), std::vector<std::string>{"101 127.0.9.1"});
    }
    // A long one is followed by the heartbeat's reports, and one that is over tells what is.
    engine().commands().sendSettingsToLamp(
        settings({{"brightness", 50}, {"duration", 60}}), lampID(1));
    receive(lightState(1, {.brightness = 30000}));
    engine().commands().lampOn(lampID(2), true);
    loop.advance(Seconds(0.5));
    receive(lightState(2, {}));
    sockets.take();
    loop.advance(Seconds(2));
    EXPECT_EQ(sent(), std::vector<std::string>{});
}

} // namespace lumeroom::test
