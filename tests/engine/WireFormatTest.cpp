#include "engine/WireFormat.h"

#include "support/LampReplies.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumeroom {

using test::hex;
using wire::Message;

namespace {

const wire::OptionalTarget kLamp = test::target(0x21);

std::string zeros(std::size_t bytes)
{
    return std::string(bytes * 2, '0');
}

/// The header of what goes to the lamp.
std::string header(const std::string& size, const std::string& flags, const std::string& type)
{
    return size + "0014" + "564b5444" + "d073d50000210000" + zeros(6) + flags + zeros(9) + type
        + "0000";
}

} // namespace

TEST(WireFormat, commandsCarryTheirPayload)
{
    const WireColour colour{0x5555, 0x0102, 0xFE01, 3500};
    EXPECT_EQ(hex(wire::lightSetColor(kLamp, colour, 400)),
        header("3100", "00", "6600") + "00" + "5555" + "0201" + "01fe" + "ac0d" + "90010000");
    EXPECT_EQ(hex(wire::lightSetPower(kLamp, true, 400)),
        header("2a00", "00", "7500") + "ffff" + "90010000");
    EXPECT_EQ(hex(wire::multizoneSetColorZones(kLamp, 9, colour, 100)),
        header("3300", "00", "f501") + "0909" + "5555" + "0201" + "01fe" + "ac0d" + "64000000"
            + "01");
    EXPECT_EQ(hex(wire::deviceSetTags(kLamp, 0x8000000000000005U)),
        header("4400", "00", "1b00") + "0500000000000080" + zeros(24));
    EXPECT_EQ(hex(wire::deviceSetTagLabels(kLamp, 4, "Den")),
        header("4c00", "00", "1e00") + "0400000000000000" + "44656e" + zeros(29));
    EXPECT_EQ(hex(wire::deviceSetLabel(kLamp, "Den")),
        header("4400", "01", "1800") + "44656e" + zeros(29));
    const Guid guid{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const std::string body = "0102030405060708090a0b0c0d0e0f10"
                             "44656e"
        + zeros(29) + "0807060504030201";
    EXPECT_EQ(hex(wire::deviceSetGrouping(
                  Message::DeviceSetGroup, kLamp, guid, "Den", 0x0102030405060708U)),
        header("5c00", "01", "3400") + body);
    EXPECT_EQ(hex(wire::deviceSetGrouping(
                  Message::DeviceSetLocation, kLamp, guid, "Den", 0x0102030405060708U)),
        header("5c00", "01", "3100") + body);
}

TEST(WireFormat, labelsAreCutAt32Bytes)
{
    const std::string longLabel = std::string(31, 'a') + "\xc3\xa9" + std::string(8, 'b');
    const Datagram label = wire::deviceSetLabel(kLamp, longLabel);
    ASSERT_EQ(label.size(), 68U);
    EXPECT_EQ(hex(std::span(label).subspan(66)), "61c3"); // within a character
    EXPECT_EQ(wire::deviceSetTagLabels(kLamp, 1, longLabel).size(), 76U);
}

TEST(WireFormat, numbersAreScaledAndKeptWithinTheirBits)
{
    const LampColour full{.colour = 65535, .saturation = 0, .brightness = 255, .warmth = 5500};
    EXPECT_EQ(toWire(full), (WireColour{65535, 65025, 65025, 3500}));
    const LampColour white{.colour = 0.9, .saturation = 255, .brightness = 12.9, .warmth = 6500};
    EXPECT_EQ(toWire(white), (WireColour{0, 0, 12 * 255, 2500}));
    // Out of range wraps to 16 bits, and what is no number counts as 0.
    const LampColour odd{.colour = 65536 + 7, .saturation = 256, .brightness = NAN, .warmth = 9001};
    EXPECT_EQ(toWire(odd), (WireColour{7, 65281, 0, 65535}));
    EXPECT_EQ(*fromWire({0, 0, 0, 9001}).warmth, 65535);
    EXPECT_EQ(millisecondsFromSeconds(INFINITY), millisecondsFromSeconds(1e300));
}

TEST(WireFormat, framesAreReadWithoutTrustInTheirHeader)
{
    Datagram datagram = test::lightState(3, {});
    datagram[0] = 1; // a size that lies
    const auto frame = wire::parseFrame(datagram);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->type, 107);
    EXPECT_EQ(frame->target, test::target(3));
    EXPECT_EQ(frame->payload.size(), 52U);
    EXPECT_FALSE(wire::parseFrame(std::span(datagram).first(35)));
    EXPECT_EQ(wire::parseFrame(std::span(datagram).first(36))->payload.size(), 0U);
}

} // namespace lumeroom
