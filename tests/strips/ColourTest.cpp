#include "base/Log.h"
#include "base/PropertyList.h"
#include "strips/ColourArchive.h"
#include "strips/ColourConversions.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumeroom::test {

namespace {

/// As a Mac writes it: reals of 32 bits, a mutable dictionary, keys in an order of its own. Hue
/// 0.25, saturation 0.75, brightness 0.5, kelvin 2700.
constexpr std::string_view kFromMac
    = "62706c69737430308002800380048005a4000102038006800780088009a405060708800a574e532e6b65"
      "79735a4e532e6f626a656374735624636c617373d30b0c0d04090a55246e756c6c5a6272696768746e65"
      "7373566b656c76696e536875655a73617475726174696f6e223f000000110a8c223e800000223f400000"
      "5f10134e534d757461626c6544696374696f6e6172795c4e5344696374696f6e617279584e534f626a65"
      "6374a318191a5a24636c6173736e616d655824636c6173736573d21c1d181bab0f0e1011121314151617"
      "1e54726f6f748001d12021582476657273696f6e12000186a058246f626a656374735924617263686976"
      "65725f100f4e534b6579656441726368697665725424746f70d423252628241f27220008000a000c000e"
      "0010001500170019001b001d00220024002c0037003e0045004b0056005d0061006c007100740079007e"
      "009400a100aa00ae00b900c200c700d300d800da00dd00e600eb00f400fe011001150000000000000201"
      "000000000000002a0000000000000029000000000000011e";

Value::Data bytesOf(std::string_view hex)
{
    Value::Data bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(
            static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
    return bytes;
}

constexpr Colour kSolidRed{1, 1, 1, 1, {}};

} // namespace

struct ColourArchive : ::testing::Test {
    std::optional<Colour> decode(const Value::Data& data)
    {
        return colourUsingArchivedColour(&data, log);
    }
    /// An archive whose objects are these; the first four are the keys of the dictionary's entries.
    Value::Data archive(Value root, const Value::Array& values)
    {
        Value::Array objects{"$null", std::move(root), "hue", "saturation", "brightness", "kelvin"};
        objects.insert(objects.end(), values.begin(), values.end());
        return propertylist::toBinary(Value::Dictionary{
            {"$top", Value::Dictionary{{"root", Value::Uid{1}}}}, {"$objects", objects}});
    }
    Value::Data archiveOf(const Value::Array& values)
    {
        Value::Array keyUids;
        Value::Array valueUids;
        for (std::uint64_t i = 0; i < values.size(); ++i) {
            keyUids.emplace_back(Value::Uid{2 + i});
            valueUids.emplace_back(Value::Uid{6 + i});
        }
        return archive(Value::Dictionary{{"NS.keys", keyUids}, {"NS.objects", valueUids}}, values);
    }

    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
};

TEST_F(ColourArchive, roundTrip)
{
    Colour colour{0.1F, 0.2F, 0.3F, 0.5F, {}};
    const auto data = archivedColour(colour);
    EXPECT_EQ(colour.kelvin, 3500); // archiving leaves it on the colour
    EXPECT_EQ(decode(data), (Colour{0.1F, 0.2F, 0.3F, 1, 3500}));

    Colour grey = Colour::grey(0.4F);
    grey.kelvin = 2700;
    EXPECT_EQ(decode(archivedColour(grey)), (Colour{0, 0, 0.4F, 1, 2700}));
    EXPECT_TRUE(lines.empty());
}

TEST_F(ColourArchive, whatAMacWrites)
{
    EXPECT_EQ(decode(bytesOf(kFromMac)), (Colour{0.25F, 0.75F, 0.5F, 1, 2700}));
}

TEST_F(ColourArchive, numbersOfAnyKindAndFarOutOfRange)
{
    const struct {
        Value::Array values; ///< hue, saturation, brightness, kelvin
        Colour colour;
    } cases[] = {
        {{1, 0, true, 2500.9}, {1, 0, 1, 1, 2500}},
        {{0.5, 7.5, -3}, {0.5F, 1, 0, 1, 3500}},
        {{0.5, 0.5, 0.5, "warm"}, {0.5F, 0.5F, 0.5F, 1, 3500}},
        {{0.5, 0.5, 0.5, 1e300}, {0.5F, 0.5F, 0.5F, 1, 2147483647}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(decode(archiveOf(c.values)), c.colour);
    EXPECT_TRUE(lines.empty());
}

TEST_F(ColourArchive, brokenOnesAreSolidRed)
{
    EXPECT_EQ(colourUsingArchivedColour(nullptr, log), std::nullopt);
    EXPECT_EQ(lines, std::vector<std::string>{"unable to make colour with nil archive"});

    using Array = Value::Array;
    const Value::Uid self{1};
    const Value::Uid nowhere{1ULL << 40U};
    const Value::Data broken[] = {
        {},
        bytesOf("62706c6973743030"),
        archiveOf({0.5, 0.5}), // no brightness
        archiveOf({"hue", 0.5, 0.5}),
        archiveOf({std::nan(""), 0.5, 0.5}),
        archiveOf({self, 0.5, 0.5}), // a reference to the dictionary itself
        archive(self, {}),
        archive(Value::Dictionary{{"NS.keys", self}, {"NS.objects", self}}, {}),
        archive(Value::Dictionary{{"NS.keys", Array{nowhere}}, {"NS.objects", Array{nowhere}}}, {}),
        archive(Value::Dictionary{{"NS.keys", Array{self, 3}}, {"NS.objects", Array{self}}}, {}),
        propertylist::toBinary(Value::Dictionary{{"$top", 1}, {"$objects", 2}}),
    };
    for (const auto& data : broken) {
        lines.clear();
        EXPECT_EQ(decode(data), kSolidRed) << description(data);
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_EQ(lines[0], "unable to make colour using archived colour: " + description(data));
    }
}

TEST_F(ColourArchive, survivesAnyDamage)
{
    const auto whole = bytesOf(kFromMac);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const auto damage : Value::Data{0x00, 0x01, 0x80, 0xFF}) {
            auto data = whole;
            data[i] = data[i] == damage ? std::uint8_t(0x55) : damage;
            const auto colour = decode(data);
            ASSERT_TRUE(colour);
            EXPECT_TRUE(colour->hue >= 0 && colour->hue <= 1) << i;
        }
        EXPECT_TRUE(decode(Value::Data(whole.begin(), whole.begin() + long(i))));
    }
}

TEST(ColourConversions, effectColoursAsSettings)
{
    const Settings lit = settingsFromEffectColour({0.5F, 0.25F, 0.001F, 1, 2700});
    EXPECT_EQ(lit.warmth, 6300);
    EXPECT_FLOAT_EQ(static_cast<float>(*lit.saturation), 191.25F);
    EXPECT_FLOAT_EQ(static_cast<float>(*lit.colour), 32767.5F);
    EXPECT_EQ(lit.onoff, true);
    const Settings dark = settingsFromEffectColour({0.5F, 1, 0.0009F, 1, {}});
    EXPECT_EQ(dark.warmth, 5500);
    EXPECT_EQ(dark.onoff, false);
}

} // namespace lumeroom::test
