#include "support/EngineHarness.h"

#include <algorithm>

namespace lumeroom::test {

using Dispatcher = EngineHarness;

TEST_F(Dispatcher, whatCannotBeReadIsToldAndDropped)
{
    addLamp(1);
    lines.clear();
    receive(reply(25, 1, Bytes().text("Other", 31)));
    receive(reply(53, 1, Bytes().text("Other", 55)));
    receive(reply(999, 1, Bytes()));
    receive(reply(999, 1, Bytes())); // told once
    receive(reply(45, 1, Bytes())); // an acknowledgement needs no payload
    receive(Datagram(35)); // nor is a fragment worth a word
    EXPECT_EQ(lines,
        (std::vector<std::string>{"payload of DEVICE_STATELABEL has length less than 32",
            "payload of DEVICE_STATEGROUP has length less than 56",
            "messageType 999 received and not understood",
            "message is (null)"})); // its target is no valid text
    const std::string longest(32, 'n');
    receive(reply(25, 1, Bytes().text(longest, 32).text("tail", 9000)));
    EXPECT_EQ(engine().registry().lampWithID(lampID(1))->label, longest);
    EXPECT_EQ(delegate.newLamps, 2);
    receive(reply(25, 1, Bytes().text("\xff", 32)));
    EXPECT_EQ(linesWith("Unable to make label from response: "), 1);
    EXPECT_EQ(delegate.newLamps, 2);
}

TEST_F(Dispatcher, aLampBecomesKnownByItsServiceReply)
{
    receive(stateService(1), "127.0.9.1");
    EXPECT_FALSE(defaults.objectForKey("knownIPs")); // anybody can say that
    EXPECT_EQ(delegate.searching, std::vector<bool>{false});
    EXPECT_EQ(delegate.newLamps, 0); // it shows with its first label

    receive(stateService(1), "127.0.9.1"); // again: still one, and not asked anew
    EXPECT_EQ(engine().registry().lightsArray().size(), 1U);
    EXPECT_EQ(delegate.searching.size(), 2U);
    loop.advance(Seconds(0.95));
    EXPECT_EQ(sockets.takeOfType(101).size(), 1U);

    receive(lightState(1, {.label = ""}));
    EXPECT_EQ(delegate.newLamps, 1); // even an empty one
    receive(lightState(1, {.label = "Desk"}));
    EXPECT_EQ(defaults.get(keys::kKnownIPs), (Value::Array{"127.0.9.1"}));
    receive(lightState(1, {.label = "Desk"})); // nothing new
    EXPECT_EQ(delegate.newLamps, 2);
    EXPECT_EQ(delegate.states, 1);
}

TEST_F(Dispatcher, aLampThatMovesHasTwoRecordsAndCountsOnce)
{
    const auto first = addLamp(1, {.label = "Desk"});
    receive(stateService(1), "127.0.9.77");
    const LampRegistry& registry = engine().registry();
    ASSERT_EQ(registry.lightsArray().size(), 2U);
    receive(lightState(1, {.hue = 99, .label = "Desk"}), "127.0.9.77");
    EXPECT_EQ(registry.lampWithID(lampID(1)), first);
    EXPECT_EQ(first->colour, 99);
    EXPECT_FALSE(registry.lightsArray()[1]->colour);
    EXPECT_EQ(registry.lightsArrayForGroup("0"), Lamps{first});
    EXPECT_EQ(engine().summaries().settingsForGroup("0").colour, 99);

    // Another takes over the address, and is a lamp of its own there.
    receive(stateService(2), lampAddress(1));
    EXPECT_EQ(registry.lampWithID(lampID(2))->address, lampAddress(1));
    EXPECT_EQ(registry.distinctLamps().size(), 2U);
}

TEST_F(Dispatcher, thereIsAnEndToLampsAndGroupings)
{
    const auto lamp = addLamp(1);
    for (unsigned n = 0; n < 5100; ++n) {
        Datagram service = stateService(2);
        service[14] = static_cast<std::uint8_t>(n);
        service[15] = static_cast<std::uint8_t>(n / 256);
        receive(service);
        // An answer on its own socket makes a lamp of it.
        const auto& answering = engine().registry().lightsArray().back();
        Datagram state = lightState(2, {});
        std::copy_n(service.begin() + 8, 8, state.begin() + 8);
        engine().udpSocketDidReceiveData(
            *answering->socket, state, socketAddress("127.0.9.1", 56700));
    }
    EXPECT_EQ(engine().registry().lightsArray().size(), 5000U);
    for (const unsigned type : {53U, 50U}) {
        for (unsigned n = 0; n < 1100; ++n) {
            Datagram group = stateGrouping(type, 1, 1, "Den " + std::to_string(n));
            group[36] = static_cast<std::uint8_t>(n);
            group[37] = static_cast<std::uint8_t>(n / 256);
            receive(group);
        }
    }
    EXPECT_EQ(engine().registry().groupsArray().size(), 1000U);
    EXPECT_EQ(engine().registry().locationssArray().size(), 1000U);
    EXPECT_EQ(lamp->group->label, "Den 1099"); // the lamp's own is taken all the same
}

TEST_F(Dispatcher, statesAreTakenInRecordUnits)
{
    const auto lamp = addLamp(
        1, {.hue = 21845, .saturation = 65535, .brightness = 65025, .kelvin = 2700, .power = 1});
    EXPECT_EQ(lamp->colour, 21845);
    EXPECT_EQ(lamp->saturation, 0);
    EXPECT_EQ(lamp->brightness, 253);
    EXPECT_EQ(lamp->warmth, 6300);
    EXPECT_EQ(lamp->onoff, true);
    receive(lightState(1, {.power = 0x0100})); // only the low byte counts
    EXPECT_EQ(lamp->onoff, false);

    // What a record that never had a state reads as brings no news.
    receive(stateService(2), lampAddress(2));
    delegate.states = 0;
    receive(lightState(2, {.saturation = 65535, .kelvin = 9000, .power = 0}));
    EXPECT_EQ(delegate.states, 0);
    EXPECT_FALSE(engine().registry().lampWithID(lampID(2))->colour);

    // A report cut short before its label gives colour and power.
    Datagram cut = lightState(1, {.hue = 4, .label = "Other"});
    cut.resize(36 + 40);
    receive(cut);
    EXPECT_EQ(lamp->colour, 4);
    EXPECT_EQ(lamp->label, "Lamp");
}

TEST_F(Dispatcher, tagsComeInTwoSteps)
{
    const auto lamp = addLamp(1);
    drainQueue();
    receive(stateTags(1, 6)); // no known tag yet
    EXPECT_FALSE(lamp->tags);
    EXPECT_EQ(delegate.newLamps, 2); // told all the same

    receive(stateTagLabels(1, 2, "Reading"));
    receive(stateTagLabels(1, 4, "Night"));
    receive(stateTagLabels(1, 2, "Renamed")); // the first label stays
    receive(stateTagLabels(1, 0, "None"));
    receive(stateTagLabels(1, std::uint64_t(1) << 63, "Top"));
    EXPECT_EQ(engine().registry().tagsArray().size(), 2U);
    loop.advance(Seconds(5));
    EXPECT_EQ(sockets.takeOfType(26).size(), 2U); // asked anew for each new label

    receive(stateTags(1, 6));
    EXPECT_EQ(lamp->tags->size(), 2U);
    receive(stateTags(1, 8)); // matches none: the old tags stay
    EXPECT_EQ(lamp->tags->size(), 2U);
    EXPECT_EQ(engine().registry().lightsArrayForTag("Night").size(), 1U);
}

TEST_F(Dispatcher, groupsAndLocationsEnterTheirLists)
{
    const auto lamp = addLamp(1);
    delegate.states = 0;
    receive(stateGrouping(53, 1, 0xAB, "Kitchen", 1234));
    ASSERT_EQ(engine().registry().groupsArray().size(), 1U);
    const auto group = engine().registry().groupsArray()[0];
    EXPECT_EQ(group->id, "abababababababababababababababab");
    EXPECT_EQ(delegate.states, 2); // the lamp's group, and the list
    receive(stateGrouping(53, 1, 0xAB, "Kitchen", 5678));
    EXPECT_EQ(delegate.states, 2);
    EXPECT_EQ(lamp->group, group); // an equal report leaves the record alone

    receive(stateGrouping(53, 1, 0xAB, "Cuisine"));
    receive(stateGrouping(53, 1, 0xAB, "Cuisine")); // told once
    EXPECT_EQ(linesWith("groups found on bulbs with matching guid's but not matching labels."), 1);
    EXPECT_EQ(engine().registry().groupsArray()[0]->label, "Kitchen");
    EXPECT_EQ(lamp->group->label, "Cuisine");
    receive(stateGrouping(53, 1, 0, "")); // in no group: nothing changes
    EXPECT_EQ(lamp->group->label, "Cuisine");

    delegate.states = 0;
    receive(stateGrouping(50, 1, 0xCD, "Home"));
    EXPECT_EQ(delegate.states, 2);
    receive(stateGrouping(50, 2, 0xCE, "Shed")); // of no known lamp: the list alone
    EXPECT_EQ(delegate.states, 3);
    EXPECT_EQ(engine().registry().lightsArrayForGroup(lamp->location->id).size(), 1U);
}

TEST_F(Dispatcher, theEmbargoKeepsGroupsOutButNotLocations)
{
    const auto lamp = addLamp(1);
    engine().groupings().removeGroupWithID("none");
    loop.advance(Seconds(10));
    engine().groupings().removeGroupWithID("none");
    receive(stateGrouping(53, 1, 1, "Kitchen"));
    receive(stateGrouping(50, 1, 2, "Home"));
    EXPECT_FALSE(lamp->group);
    EXPECT_TRUE(lamp->location);
    loop.advance(Seconds(4.9));
    EXPECT_TRUE(groupsAreRefused());
    loop.advance(Seconds(0.2)); // 15 seconds after the first, however many followed
    EXPECT_FALSE(groupsAreRefused());
}

TEST_F(Dispatcher, zonesAreLearntOneReportAtATime)
{
    const auto lamp = addLamp(1);
    receive(stateVersion(1, 31));
    receive(stateZone(1, 12, 0, 100));
    EXPECT_EQ(lamp->zonecount, 12);
    EXPECT_EQ(delegate.newZones, 1);
    receive(stateVersion(1, 31));
    loop.advance(Seconds(10));
    EXPECT_EQ(hex(std::span(sockets.takeOfType(502).at(1).data).subspan(36)), "000b");

    receive(stateMultizone(1, 40, 0, 100));
    receive(stateMultizone(1, 40, 8, 200));
    EXPECT_EQ(lamp->zones->size(), 16U); // eight at a time, past the last as well
    EXPECT_EQ(lamp->zonecount, 12);
    EXPECT_EQ(delegate.newZones, 16);
    receive(stateMultizone(1, 40, 8, 200));
    EXPECT_EQ(delegate.zoneStates, 0);
    receive(stateZone(1, 12, 3, 5000));
    EXPECT_EQ(delegate.zoneStates, 1);
    EXPECT_EQ(lamp->zones->back().zone, 3); // a changed zone moves to the end
    EXPECT_EQ(lamp->zonesInOrder()[3].colour, 5000);
    receive(stateMultizone(1, 40, 252, 1)); // the numbers wrap
    EXPECT_EQ(lamp->zones->size(), 20U);
}

TEST_F(Dispatcher, aLightStripsRecordIsTheMeanOfItsZones)
{
    receive(stateService(1));
    const auto lamp = engine().registry().lampWithID(lampID(1));
    receive(stateZone(1, 8, 0, 4000));
    EXPECT_FALSE(lamp->colour); // without a power nothing is shown of it
    receive(lightState(1, {.hue = 60000}));
    EXPECT_EQ(lamp->colour, 4000);
    EXPECT_EQ(delegate.powers, 1);
    const auto reports = lamp->reports;
    receive(stateZone(1, 8, 1, 5000));
    EXPECT_EQ(lamp->colour, 4500);
    receive(stateZone(1, 8, 0, 1000)); // which comes last then, and counts for one half
    EXPECT_EQ(lamp->colour, 3000);
    EXPECT_EQ(lamp->reports, reports + 2);
    receive(stateMultizone(1, 8, 8, 9)); // zones that the lamp does not have
    receive(lightState(1, {.hue = 60000}));
    EXPECT_EQ(lamp->colour, 3000);
    EXPECT_EQ(delegate.powers, 1);
    receive(lightState(1, {.power = 0}));
    EXPECT_EQ(delegate.powers, 2);
    EXPECT_EQ(delegate.states, 0);
}

} // namespace lumeroom::test
