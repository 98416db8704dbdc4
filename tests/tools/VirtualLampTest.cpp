#include <virtual-lamps/Control.h>
#include <virtual-lamps/DemoLamps.h>
#include <virtual-lamps/LampFactory.h>
#include <virtual-lamps/Options.h>

#include <gtest/gtest.h>

namespace virtual_lamps {

namespace {

const Time kStart = Time() + std::chrono::hours(1);

Bytes request(std::uint16_t type, const MacAddress& target, const Bytes& payload = {})
{
    PayloadWriter frame;
    frame.u16(static_cast<unsigned>(36 + payload.size())).u16(0x1400);
    frame.u32(0xCAFE).bytes(target).u32(0).u16(0).u8(0).u8(9).u64(0).u16(type).u16(0);
    frame.bytes(payload);
    return frame.get();
}

} // namespace

TEST(Model, coloursFadeAndTakeTheShortWayRound)
{
    const MacAddress mac = macAddressForNumber(5);
    VirtualLamp lamp(mac, productWithID(27), 0);
    lamp.setColour({65000, 0, 0, 3000}, kStart);
    const Bytes set
        = PayloadWriter().u8(0).u16(1000).u16(65535).u16(40000).u16(4000).u32(1000).get();
    lamp.handle(request(102, mac, set), kStart);
    const Hsbk half = lamp.colour(kStart + Milliseconds(500));
    EXPECT_EQ(half.brightness, 20000);
    EXPECT_EQ(half.hue, 232); // 65000 + 768, past the turn
    const Bytes state = lamp.handle(request(101, mac), kStart + Milliseconds(1000)).at(0);
    EXPECT_EQ(readInteger(state, 32, 2), 107U);
    EXPECT_EQ(hexText(ByteView(state).subspan(36, 8)), "e803ffff409ca00f");
    lamp.setPower(true, kStart);
    lamp.handle(request(117, mac, PayloadWriter().u16(0).u32(2000).get()), kStart);
    EXPECT_TRUE(lamp.power(kStart + Milliseconds(1900)));
    EXPECT_FALSE(lamp.power(kStart + Milliseconds(2000)));

    VirtualLamp white(mac, productWithID(10), 0);
    white.setColour({5, 6, 7, 9000}, kStart);
    EXPECT_EQ(white.colour(kStart), (Hsbk{0, 0, 7, 6500}));
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
