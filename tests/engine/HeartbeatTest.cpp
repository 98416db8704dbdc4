#include "support/EngineHarness.h"

#include <cmath>
#include <map>

namespace lumeroom::test {

struct Heartbeat : EngineHarness {
    /// Makes lamps known that answer every request for their state.
    void addAnsweringLamps(unsigned count)
    {
        for (unsigned n = 1; n <= count; ++n) {
            addLamp(n);
            answering[lampAddress(n)] = n;
        }
        drainQueue();
    }
    /// Lets the time pass. What is sent meanwhile, of one type or all, to one host or all.
    std::vector<SentDatagram> run(double seconds, unsigned type = 0, const std::string& host = {})
    {
        std::vector<SentDatagram> result;
        for (int tenth = 0; tenth < std::lround(seconds * 10); ++tenth) {
            loop.advance(Seconds(0.1));
            for (const auto& datagram : sockets.take()) {
                if ((type == 0 || datagram.type() == type)
                    && (host.empty() || datagram.host == host))
                    result.push_back(datagram);
                const auto lamp = answering.find(datagram.host);
                if (datagram.type() == 101 && lamp != answering.end())
                    engine().udpSocketDidReceiveData(*datagram.socket, lightState(lamp->second, {}),
                        socketAddress(lamp->first, 56700));
            }
        }
        return result;
    }
    std::map<std::string, unsigned> answering;
};

TEST_F(Heartbeat, oneCycleByteForByteAndItsPace)
{
    addLamp(1);
    addLamp(2);
    drainQueue();
    engine().startHeartbeat();
    const struct {
        double time;
        unsigned lamp; ///< 0 for everyone
        std::string type;
    } steps[] = {{0.1, 0, "0200"}, {0.2, 1, "6500"}, {0.3, 2, "6500"}, {1, 0, "1d00"},
        {1.5, 1, "3300"}, {1.6, 2, "3300"}, {2, 1, "3000"}, {2.1, 2, "3000"}, {2.5, 0, "2000"},
        {3, 0, "0200"}, {3.1, 1, "6500"}};
    const Seconds start = loop.elapsed();
    for (const auto& step : steps) {
        loop.advance(start + Seconds(step.time - 0.01) - loop.elapsed());
        EXPECT_TRUE(sockets.take().empty()) << step.time;
        loop.advance(Seconds(0.02));
        const auto sent = sockets.take();
        ASSERT_EQ(sent.size(), 1U) << step.time;
        EXPECT_EQ(sent[0].host, step.lamp ? lampAddress(step.lamp) : "255.255.255.255");
        EXPECT_EQ(sent[0].port, 56700);
        const std::string to = step.lamp ? hex(target(step.lamp)) : std::string(16, '0');
        EXPECT_EQ(hex(sent[0].data),
            (step.lamp ? "24000014564b5444" : "24000034564b5444") + to + std::string(12, '0')
                + "0100" + std::string(16, '0') + step.type + "0000");
    }
    EXPECT_EQ(delegate.searching.back(), true);
}

TEST_F(Heartbeat, speedIsReadOncePerCycle)
{
    defaults.setObject("heartbeatSpeed", 2.0);
    engine().startHeartbeat();
    const auto discoveriesIn = [this](double seconds) {
        loop.advance(Seconds(seconds));
        return sockets.takeOfType(2).size();
    };
    EXPECT_EQ(discoveriesIn(2.9), 2U); // at 0 and 1.5
    defaults.setObject("heartbeatSpeed", 1.0); // from the cycle at 3.0 on
    EXPECT_EQ(discoveriesIn(3.0), 1U);
    defaults.setObject("heartbeatSpeed", -3); // counts as 1
    EXPECT_EQ(discoveriesIn(6.0), 2U);
    defaults.setObject("heartbeatSpeed", 0);
    EXPECT_EQ(discoveriesIn(60), 1U); // one more, then an endless pause
}

TEST_F(Heartbeat, anEmbargoLeavesThePaceButAsksForNoGroups)
{
    addLamp(1);
    drainQueue();
    engine().groupings().makeGroupNamed({}, "Den"); // imposes it
    engine().startHeartbeat();
    std::vector<unsigned> sent;
    for (const auto& datagram : run(2.9))
        sent.push_back(datagram.type());
    EXPECT_EQ(sent, (std::vector<unsigned>{2, 101, 29, 32}));
}

// Every lamp is found and shown at once, though the first to answer fill the queue, and though the
// panel is rebuilt for each few of them.
TEST_F(Heartbeat, aHouseFullOfLampsIsFoundAtFullPace)
{
    engine().startHeartbeat();
    run(0.5);
    for (unsigned n = 1; n <= 30; ++n) {
        answering[lampAddress(n)] = n;
        receive(stateService(n), lampAddress(n));
    }
    for (int tenth = 0; tenth < 45; ++tenth) {
        if (tenth % 15 == 14)
            engine().invalidateSockets();
        run(0.1);
    }
    for (const auto& lamp : engine().registry().lightsArray())
        EXPECT_TRUE(lamp->onoff && lamp->polling.hasAnswered) << lamp->address;
}

TEST_F(Heartbeat, neitherManyLampsNorRebuildsHoldUpAChange)
{
    addAnsweringLamps(30);
    engine().startHeartbeat();
    EXPECT_FALSE(run(9.5, 32).empty()); // the versions come with the first round
    run(3600);
    for (int rebuild = 0; rebuild < 40; ++rebuild) {
        engine().invalidateSockets();
        run(1.5);
    }
    // The change leaves within the embargo that protects it.
    Reference lamp(lampID(1));
    engine().groupings().makeGroupNamed({&lamp}, "Den");
    std::size_t changes = run(3.1, 52).size();
    std::set<std::string> asked;
    for (const auto& datagram : run(11)) {
        changes += datagram.type() == 52 ? 1 : 0;
        if (datagram.type() != 101)
            continue;
        // Every lamp is still asked for its state, by its newest socket.
        asked.insert(datagram.host);
        const auto& there = engine().registry().lampsAtAddress(datagram.host);
        EXPECT_EQ(datagram.socket, there.at(0)->socket.get());
    }
    EXPECT_EQ(changes, 1U);
    EXPECT_EQ(asked.size(), 30U);
}

TEST_F(Heartbeat, aFloodOfAnnouncementsTakesNothingFromLampsThatAnswer)
{
    addAnsweringLamps(3);
    // One that is announced elsewhere before it answers where it is.
    receive(stateService(7), lampAddress(70));
    receive(stateService(7), lampAddress(7));
    receive(lightState(7, {.label = "Hall"}), lampAddress(7));
    engine().startHeartbeat();
    std::size_t asked = 0;
    for (unsigned second = 0; second < 20; ++second) {
        for (unsigned n = 1000; n < 6000; n += 10)
            receive(stateService(n + second % 10), lampAddress(n + second % 10));
        for (const auto& datagram : run(1, 101))
            asked += answering.count(datagram.host);
    }
    EXPECT_GE(asked, 18U); // of 21
    EXPECT_LE(engine().registry().lightsArray().size(), 304U);
    EXPECT_EQ(defaults.get(keys::kKnownIPs).size(), 4U);

    // One that never answers is asked ever more rarely, and makes room for a lamp.
    std::size_t askedOne = 0; // which goes on announcing itself
    for (int beat = 0; beat < 400; ++beat) {
        receive(stateService(1000), lampAddress(1000));
        askedOne += run(3, 101, lampAddress(1000)).size();
    }
    EXPECT_LE(askedOne, 20U);
    answering[lampAddress(4)] = 4;
    receive(stateService(4), lampAddress(4));
    run(60);
    for (const unsigned n : {5U, 6U})
        receive(stateService(n), lampAddress(n));
    EXPECT_EQ(run(60, 101, lampAddress(4)).size(), 20U);
    EXPECT_EQ(engine().registry().lightsArray().size(), 304U + 1U);
    const auto hall = engine().registry().lampWithID(lampID(7));
    EXPECT_EQ(hall->address, lampAddress(7)); // and has kept what it told
    EXPECT_EQ(hall->label, "Hall");
    EXPECT_FALSE(engine().registry().lampWithTarget(target(1000)));
    receive(stateService(1000), lampAddress(1000));
    EXPECT_TRUE(engine().registry().lampWithTarget(target(1000)));
}

TEST_F(Heartbeat, aSilentLampIsAskedEverMoreRarelyUntilItSpeaks)
{
    addAnsweringLamps(2);
    answering.erase(lampAddress(1));
    engine().startHeartbeat();
    EXPECT_EQ(run(11.5, 101, lampAddress(1)).size(), 4U);
    receive(stateService(1), lampAddress(81)); // where it now is, and answers
    receive(lightState(1, {}), lampAddress(81));
    answering[lampAddress(81)] = 1;
    std::vector<int> pauses{0};
    for (int beat = 0; beat < 300; ++beat) {
        const auto sent = run(3, 0, lampAddress(1));
        if (sent.empty())
            ++pauses.back();
        else
            pauses.push_back(0);
        EXPECT_LE(sent.size(), 1U); // and not for its group
        // What it says to everybody is no answer from its old address.
        engine().udpSocketDidReceiveData(*sockets.factory()(engine()), stateVersion(1, 1),
            socketAddress(lampAddress(81), 56700));
    }
    EXPECT_EQ(pauses, (std::vector<int>{0, 2, 4, 8, 16, 32, 64, 64, 64, 37}));
    EXPECT_EQ(run(3, 51).size(), 2U); // the other addresses'
    engine().commands().lampOn(lampID(1), true); // commands go to it all the same
    EXPECT_EQ(sockets.takeOfType(117).size(), 2U);

    receive(stateService(1), lampAddress(1));
    EXPECT_EQ(run(6, 101, lampAddress(1)).size(), 2U);
    EXPECT_EQ(run(3, 51).size(), 3U);
}

TEST_F(Heartbeat, socketsAreMadeOnDemandRenewedAndClosed)
{
    const auto lamp = addLamp(1);
    drainQueue();
    engine().startHeartbeat();
    run(2.4);
    engine().invalidateSockets(); // before the version request: it does not make a socket
    EXPECT_FALSE(lamp->socket);
    EXPECT_TRUE(run(0.5).empty());
    // Made anew, and again by the next use when an error has closed them.
    for (const auto& datagram : run(1))
        datagram.socket->close();
    EXPECT_EQ(sockets.closed(), 2);
    run(2);
    for (const auto& datagram : run(1))
        EXPECT_FALSE(datagram.socket->isClosed()) << datagram.type();
    engine().closeUp();
    EXPECT_EQ(sockets.closed(), 4);
}

TEST_F(Heartbeat, aSocketNobodyHoldsStaysForTheReply)
{
    const auto lamp = addLamp(1); // whose state is about to be asked for
    const std::weak_ptr<UdpSocket> socket = lamp->socket;
    engine().invalidateSockets();
    ASSERT_EQ(run(0.1).size(), 1U);
    EXPECT_FALSE(socket.expired());
    engine().startHeartbeat();
    run(9);
    EXPECT_TRUE(socket.expired());
}

TEST_F(Heartbeat, addressesFollowTheSettings)
{
    using Hosts = std::set<std::string>;
    const Hosts everyone{"255.255.255.255"};
    const Hosts known{"127.0.9.1"};
    const Hosts listed{"127.0.0.3", "127.0.0.4"};
    const struct {
        bool noBroadcast;
        Value manual;
        Hosts service;
        Hosts details;
    } cases[] = {
        {false, "", everyone, everyone},
        {false, Value::Array{"10.0.0.1"}, everyone, everyone}, // of a wrong type
        {false, "127.0.0.3, 127.0.0.4\r\n127.0.0.3 desk", listed, listed},
        {true, "127.0.0.3\t127.0.0.4,42", listed, known},
        {true, "localhost", known, known},
    };
    addAnsweringLamps(1);
    engine().startHeartbeat();
    for (const auto& c : cases) {
        defaults.setObject("noBroadcastSupport", c.noBroadcast);
        defaults.setObject("manualIPAddresses", c.manual);
        run(0.3); // into the next cycle
        std::map<unsigned, Hosts> hosts;
        for (const auto& datagram : run(3))
            hosts[datagram.type()].insert(datagram.host);
        EXPECT_EQ(hosts[2], c.service) << description(c.manual);
        EXPECT_EQ(hosts[29], c.details) << description(c.manual);
        EXPECT_EQ(hosts[32], c.details) << description(c.manual);
        run(2.7);
    }
}

TEST_F(Heartbeat, theArpTableIsReadWhenTheSettingsComeToNeedIt)
{
    defaults.setObject("manualIPAddresses", "10.0.0.1");
    defaults.setObject("knownIPs", Value::Array{"10.0.0.1", 5});
    engine();
    const auto set = [this](const char* key, const Value& value) {
        defaults.setObject(key, value);
        loop.runPosted();
        return std::exchange(arp.runs, 0);
    };
    EXPECT_EQ(set("noBroadcastSupport", "YES"), 0);
    EXPECT_EQ(set("manualIPAddresses", ""), 1);
    EXPECT_EQ(set("verbosity", 1), 0); // once
    engine().startHeartbeat();
    EXPECT_TRUE(run(2).empty()); // earlier addresses are not read before the first addition
    arp.pending({1, "lifx-desk (10.0.0.2) at aa\nprinter (10.0.0.3) at bb\nlifx without\n"});
    EXPECT_EQ(defaults.get(keys::kKnownIPs), (Value::Array{"10.0.0.2", "10.0.0.1"}));
    EXPECT_EQ(linesWith("arp error - exit code: 1"), 1); // and the output counts all the same
    EXPECT_EQ(delegate.searching.back(), false);
    EXPECT_EQ(run(1.5, 2).size(), 2U);
    arp.runs = 0;
    set("noBroadcastSupport", false);
    EXPECT_EQ(set("noBroadcastSupport", true), 0); // now there are addresses to ask
}

} // namespace lumeroom::test
