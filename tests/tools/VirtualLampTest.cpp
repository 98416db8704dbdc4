#include <virtual-lamps/Control.h>
#include <virtual-lamps/DemoLamps.h>
#include <virtual-lamps/LampFactory.h>
#include <virtual-lamps/Options.h>

#include <gtest/gtest.h>

namespace virtual_lamps {

namespace {

const Time kStart = Time() + std::chrono::hours(1);

Bytes request(std::uint16_t type, const MacAddress& target, const Bytes& payload = {},
    unsigned flags = 0, unsigned size = 0)
{
    PayloadWriter frame;
    frame.u16(size != 0 ? size : static_cast<unsigned>(36 + payload.size())).u16(0x1400);
    frame.u32(0xCAFE).bytes(target).u32(0).u16(0).u8(flags).u8(9).u64(0).u16(type).u16(0);
    frame.bytes(payload);
    return frame.get();
}

/// The payloads of the answers of one type.
std::vector<Bytes> payloads(const std::vector<Bytes>& answers, std::uint16_t type)
{
    std::vector<Bytes> found;
    for (const Bytes& answer : answers) {
        if (readInteger(answer, 32, 2) == type)
            found.emplace_back(answer.begin() + 36, answer.end());
    }
    return found;
}

struct Model : ::testing::Test {
    const MacAddress mac = macAddressForNumber(5);
    VirtualLamp lamp{mac, productWithID(27), 0};
    VirtualLamp strip{mac, productWithID(32), 12};
};

} // namespace

TEST_F(Model, answersWithTheRequestsSourceAndSequence)
{
    const auto answers = lamp.handle(request(2, {}), kStart);
    ASSERT_EQ(answers.size(), 2U); // as real lamps, UDP and a reserved service
    const Bytes& first = answers[0];
    EXPECT_EQ(readInteger(first, 4, 4), 0xCAFEU);
    EXPECT_EQ(first[23], 9);
    EXPECT_EQ(readInteger(first, 32, 2), 3U);
    EXPECT_EQ(hexText(ByteView(first).subspan(36)), "017cdd0000");
    EXPECT_TRUE(std::equal(mac.begin(), mac.end(), first.begin() + 8));
    EXPECT_TRUE(lamp.handle(request(2, macAddressForNumber(6)), kStart).empty());
    EXPECT_TRUE(lamp.handle(Bytes(35), kStart).empty());
}

TEST_F(Model, setsAreAnsweredWhenAsked)
{
    const Bytes label = PayloadWriter().text("New", 32).get();
    EXPECT_TRUE(lamp.handle(request(24, mac, label), kStart).empty());
    EXPECT_EQ(lamp.label, "New");
    EXPECT_EQ(payloads(lamp.handle(request(24, mac, label, 1), kStart), 25).size(), 1U);
    EXPECT_EQ(payloads(lamp.handle(request(24, mac, label, 2), kStart), 45).size(), 1U);
    EXPECT_TRUE(lamp.handle(request(24, mac, Bytes(31), 1), kStart).empty()); // too short
}

TEST_F(Model, coloursFadeAndTakeTheShortWayRound)
{
    lamp.setColour({65000, 0, 0, 3000}, kStart);
    const Bytes set
        = PayloadWriter().u8(0).u16(1000).u16(65535).u16(40000).u16(4000).u32(1000).get();
    lamp.handle(request(102, mac, set), kStart);
    const Hsbk half = lamp.colour(kStart + Milliseconds(500));
    EXPECT_EQ(half.brightness, 20000);
    EXPECT_EQ(half.hue, 232); // 65000 + 768, past the turn
    const auto state
        = payloads(lamp.handle(request(101, mac), kStart + Milliseconds(1000)), 107).at(0);
    EXPECT_EQ(hexText(ByteView(state).first(8)), "e803ffff409ca00f");
    lamp.setPower(true, kStart);
    lamp.handle(request(117, mac, PayloadWriter().u16(0).u32(2000).get()), kStart);
    EXPECT_TRUE(lamp.power(kStart + Milliseconds(1900)));
    EXPECT_FALSE(lamp.power(kStart + Milliseconds(2000)));

    VirtualLamp white(mac, productWithID(10), 0);
    white.setColour({5, 6, 7, 9000}, kStart);
    EXPECT_EQ(white.colour(kStart), (Hsbk{0, 0, 7, 6500}));
}

TEST_F(Model, zonesAnswerOneOrEightAtATime)
{
    for (std::size_t i = 0; i < 12; ++i)
        strip.setZone(i, {static_cast<std::uint16_t>(i), 1, 2, 3000}, kStart);
    const auto ask = [&](unsigned from, unsigned to, unsigned size = 0) {
        return strip.handle(
            request(502, mac, PayloadWriter().u8(from).u8(to).get(), 0, size), kStart);
    };
    EXPECT_EQ(hexText(payloads(ask(0, 0, 36), 503).at(0)), "0c00000001000200b80b");
    const auto all = payloads(ask(0, 255), 506);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(hexText(ByteView(all[1]).first(10)), "0c08080001000200b80b");
    EXPECT_EQ(hexText(ByteView(all[1]).subspan(2 + 32, 8)), std::string(16, '0')); // past the last

    const auto set = [&](unsigned zone, unsigned hue, unsigned apply) {
        PayloadWriter payload;
        payload.u8(zone).u8(zone).u16(hue).u16(0).u16(0).u16(3000).u32(0).u8(apply);
        strip.handle(request(501, mac, payload.get()), kStart);
    };
    set(3, 777, 0); // waits
    EXPECT_EQ(strip.zone(3, kStart).hue, 3);
    set(4, 888, 1);
    EXPECT_EQ(strip.zone(3, kStart).hue, 777);
}

TEST(Options, sayWhatIsWrong)
{
    const struct {
        std::vector<std::string> arguments;
        std::string error;
    } cases[] = {
        {{"--count", "0"}, "--count: Value 0 not in range 1 to 2000"},
        {{"--zones", "1:83"}, "--zones: '83' is no number from 1 to 82"},
        {{"--silent", "2@1"}, "there is no lamp 2"},
        {{"--address", "10.0.0.1"},
            "10.0.0.1 is not in 127.0.0.0/8; say --any-address to use it all the same"},
        {{"--address", "10.0.0.1", "--any-address", "--zones", "1:82"}, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseOptions(c.arguments).error, c.error);
}

TEST(Control, switchesALampByNumberOrName)
{
    DemoLamps demo;
    std::string error;
    ASSERT_TRUE(demo.start(3, error)) << error;
    EXPECT_EQ(runCommand(*demo.network(), "set 2 power on"), "ok");
    EXPECT_NE(
        runCommand(*demo.network(), "state Ceiling").find("\"power\":true"), std::string::npos);
    EXPECT_EQ(runCommand(*demo.network(), "set nobody power on"), "error: no lamp 'nobody'");
}

} // namespace virtual_lamps
