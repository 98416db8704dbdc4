#include "strips/ColourArchive.h"
#include "strips/ColourConversions.h"
#include "strips/ControlPainting.h"
#include "strips/KeyedArchive.h"

#include "base/Log.h"
#include "base/PropertyList.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumeroom {

TEST(Colour, becomesRedGreenAndBlue)
{
    const struct {
        Colour colour;
        Rgba rgba;
    } cases[] = {{{0, 1, 1, 1, {}}, {1, 0, 0, 1}}, {{1.0F / 3, 1, 1, 1, {}}, {0, 1, 0, 1}},
        {{2.0F / 3, 1, 0.5F, 1, {}}, {0, 0, 0.5F, 1}}, {Colour::grey(0.4F), {0.4F, 0.4F, 0.4F, 1}},
        {{1, 1, 1, 0.5F, {}}, {1, 0, 0, 0.5F}}};
    for (const auto& c : cases) {
        const Rgba rgba = rgbaFrom(c.colour);
        EXPECT_NEAR(rgba.red, c.rgba.red, 1e-5);
        EXPECT_NEAR(rgba.green, c.rgba.green, 1e-5);
        EXPECT_NEAR(rgba.blue, c.rgba.blue, 1e-5);
        EXPECT_EQ(rgba.alpha, c.rgba.alpha);
    }
}

TEST(Colour, conversionsOfThePicker)
{
    EXPECT_EQ(kelvinFromKnob(-1), 9000);
    EXPECT_EQ(kelvinFromKnob(0), 5750);
    EXPECT_EQ(kelvinFromKnob(1), 2500);
    EXPECT_EQ(knobFromKelvin(2500).degrees, 90);
    EXPECT_EQ(knobFromKelvin(2500).distance, 1);
    EXPECT_EQ(knobFromKelvin(9000).degrees, 270);
    for (const float hue : {0.0F, 0.2F, 0.5F, 0.9F}) {
        const KnobPlace knob = knobFromColour({hue, 0.7F, 1, 1, {}});
        EXPECT_LT(knob.degrees, 360);
        EXPECT_NEAR(std::fmod(colourFromKnob(knob, 1).hue, 1.0), hue, 1e-5);
    }
    const Settings dark = settingsFromEffectColour({0.5F, 1, 0.0005F, 1, {}});
    EXPECT_EQ(dark.onoff, false);
    EXPECT_EQ(dark.warmth, 5500);
    EXPECT_EQ(settingsFromEffectColour({0, 0, 1, 1, 2500}).warmth, 6500);
}

struct Archive : ::testing::Test {
    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
};

TEST_F(Archive, keepsTheColour)
{
    Colour colour{0.25F, 0.5F, 0.75F, 1, 2700};
    EXPECT_EQ(colourUsingArchivedColour(archivedColour(colour), log), colour);
    Colour plain = Colour::grey(0.5F);
    const auto data = archivedColour(plain);
    EXPECT_EQ(plain.kelvin, 3500); // archiving gives it one
    EXPECT_EQ(colourUsingArchivedColour(data, log)->kelvin, 3500);
    const auto list = propertylist::parse(data);
    EXPECT_EQ(*list->find("$archiver"), Value("NSKeyedArchiver"));
    EXPECT_EQ(*list->find("$version"), Value(100000));
    EXPECT_TRUE(list->find("$top")->find("root")->is<Value::Uid>());
}

TEST_F(Archive, readsWhatAMacWrites)
{
    // The order of objects differs there, and so does the class.
    const auto uid = [](std::uint64_t index) { return Value(Value::Uid{index}); };
    const Value archive = Value::Dictionary{
        {"$version", 100000},
        {"$archiver", "NSKeyedArchiver"},
        {"$top", Value::Dictionary{{"root", uid(1)}}},
        {"$objects",
            Value::Array{"$null",
                Value::Dictionary{{"$class", uid(9)},
                    {"NS.keys", Value::Array{uid(2), uid(3), uid(4), uid(5)}},
                    {"NS.objects", Value::Array{uid(6), uid(7), uid(8), uid(7)}}},
                "kelvin", "hue", "brightness", "saturation", 4000, 0.5, 1,
                Value::Dictionary{{"$classname", "NSMutableDictionary"}}}},
    };
    const auto colour = colourUsingArchivedColour(propertylist::toBinary(archive), log);
    EXPECT_EQ(colour, (Colour{0.5F, 0.5F, 1, 1, 4000}));
}

TEST_F(Archive, damageGivesRedOrNothing)
{
    EXPECT_FALSE(colourUsingArchivedColour({}, log));
    EXPECT_EQ(lines.back(), "unable to make colour with nil archive");
    const Colour red{1, 1, 1, 1, {}};
    const auto withoutHue = keyedArchiveOf({{"saturation", 0.1}, {"brightness", 0.2}});
    EXPECT_EQ(colourUsingArchivedColour(withoutHue, log), red);
    EXPECT_EQ(lines.back().find("unable to make colour using archived colour: <62706c"), 0U);
    const auto withoutKelvin
        = keyedArchiveOf({{"hue", 0.1}, {"saturation", 0.1}, {"brightness", 0.2}});
    EXPECT_EQ(colourUsingArchivedColour(withoutKelvin, log)->kelvin, 3500);

    const auto loop = [](std::uint64_t root) {
        return propertylist::toBinary(Value::Dictionary{
            {"$top", Value::Dictionary{{"root", Value::Uid{root}}}},
            {"$objects",
                Value::Array{Value::Dictionary{{"NS.keys", Value::Array{Value::Uid{0}, "x"}},
                    {"NS.objects", Value::Array{Value::Uid{99}, Value::Uid{0}}}}}},
        });
    };
    EXPECT_EQ(colourUsingArchivedColour(loop(0), log), red);
    EXPECT_EQ(colourUsingArchivedColour(loop(7), log), red);
    EXPECT_EQ(colourUsingArchivedColour(Value::Data{1, 2, 3}, log), red);
}

TEST(Painting, barsFollowTheirRoom)
{
    const SliderBar lying = brightnessSliderBar({10, 0, 100, 20}, false);
    EXPECT_EQ(lying.rectangle, (Rectangle{10, 8, 100, 4}));
    EXPECT_EQ(lying.degrees, 0);
    EXPECT_EQ(lying.alpha, 1);
    const SliderBar upright = whitenessSliderBar({0, 0, 20, 100}, 0, true);
    EXPECT_EQ(upright.rectangle, (Rectangle{8, 0, 4, 100}));
    EXPECT_EQ(upright.degrees, 270);
    EXPECT_EQ(upright.alpha, 0.75F);
    EXPECT_EQ(upright.colours, (std::vector<Rgba>{{1, 0, 0, 1}, {1, 1, 1, 1}}));
}

TEST(Painting, theButtonShowsAPaleLamp)
{
    const Colour lamp{0, 1, 0.5F, 1, {}};
    const Rectangle bounds{0, 0, 50, 50};
    EXPECT_EQ(
        onOffButtonPaint(bounds, {true, false, false, lamp}).oval, (Rectangle{10, 10, 30, 30}));
    const auto on = onOffButtonPaint(bounds, {true, false, false, lamp});
    ASSERT_EQ(on.fills.size(), 1U);
    EXPECT_NEAR(on.fills[0].green, 0.67, 0.001);
    EXPECT_EQ(on.fills[0].alpha, 0.5F);
    EXPECT_EQ(onOffButtonPaint(bounds, {true, false, true, lamp}).fills.size(), 2U);
    EXPECT_EQ(onOffButtonPaint(bounds, {false, false, false, lamp}).fills[0].red, 0.6F);
}

} // namespace lumeroom
