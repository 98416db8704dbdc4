#include "base/Log.h"
#include "strips/WheelPainting.h"
#include "strips/ZTColourPicker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace lumeroom::test {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
using Slider = SSCircularSlider;

/// The picker's wheel: centre (100, 100), track radius 89.5, reach of the knob 86.5.
Slider wheel()
{
    Slider slider({200, 200});
    slider.setAngleUnits(Slider::AngleUnits::Degrees);
    return slider;
}

struct Picked : ZTColourPickerDelegate {
    void userHasPickedColour(const Colour& colour) override { colours.push_back(colour); }
    std::vector<Colour> colours;
};

} // namespace

TEST(SSCircularSlider, degreesRunClockwiseFromTheTop)
{
    const struct {
        float degrees;
        Point offset;
    } cases[]
        = {{0, {0, 1}}, {90, {1, 0}}, {180, {0, -1}}, {270, {-1, 0}}, {315, {-0.70711F, 0.70711F}}};
    for (const auto& c : cases) {
        Slider slider = wheel();
        slider.setAngleAndDistance({c.degrees, 1});
        EXPECT_NEAR(slider.getXOffsetAndYOffset().x, c.offset.x, 1e-5) << c.degrees;
        EXPECT_NEAR(slider.getXOffsetAndYOffset().y, c.offset.y, 1e-5) << c.degrees;
        slider.setXOffsetAndYOffset(c.offset);
        EXPECT_NEAR(slider.getAngleAndDistance().angle, c.degrees, 1e-3);
        slider.setAngleUnits(Slider::AngleUnits::Radians);
        EXPECT_NEAR(std::sin(slider.getAngleAndDistance().angle), c.offset.y, 1e-5);
    }
}

TEST(SSCircularSlider, keepsItsKnobWhereItMayStand)
{
    const struct {
        bool center;
        bool nonEdge;
        Point offset;
        Slider::Polar place; ///< radians
    } cases[] = {
        {true, true, {0, 0}, {0, 0}},
        {true, true, {3, 4}, {std::atan2(4.0F, 3.0F), 2}}, // capped at the maximum, 2
        {true, true, {0, 0.5F}, {kPi / 2, 0.5F}},
        {true, false, {0, 0.9F}, {kPi / 2, 0}},
        {true, false, {0, 1.1F}, {kPi / 2, 2}},
        {false, false, {0, 0.1F}, {kPi / 2, 2}},
        {false, true, {0, 0}, {0, 0.01F}},
        {false, true, {0, 0.5F}, {kPi / 2, 0.5F}},
    };
    for (const auto& c : cases) {
        Slider slider({200, 200});
        slider.setMaximumDistance(2);
        slider.setAllowsCenterPoint(c.center);
        slider.setAllowsNonEdgePositions(c.nonEdge);
        slider.setXOffsetAndYOffset(c.offset);
        EXPECT_FLOAT_EQ(slider.getAngleAndDistance().angle, c.place.angle) << c.offset.y;
        EXPECT_FLOAT_EQ(slider.getAngleAndDistance().distance, c.place.distance) << c.offset.y;
    }
}

TEST(SSCircularSlider, snapsAlwaysOrWithShift)
{
    using Behavior = Slider::Behavior;
    const struct {
        Behavior behavior;
        bool shift;
        float degrees;
    } cases[] = {
        {Behavior::Never, true, 50},
        {Behavior::Always, false, 45},
        {Behavior::WithShift, false, 50},
        {Behavior::WithShift, true, 45},
    };
    const float fifty = 50 * kPi / 180;
    for (const auto& c : cases) {
        Slider slider = wheel();
        slider.setSnapBehavior(c.behavior);
        slider.setDrawTicksBehavior(c.behavior);
        slider.mouseDown({100 + 50 * std::sin(fifty), 100 - 50 * std::cos(fifty)}, c.shift);
        EXPECT_NEAR(slider.getAngleAndDistance().angle, c.degrees, 1e-3);
        EXPECT_EQ(slider.shownSnapMarks(c.shift), c.degrees == 45 ? 8 : 0);
    }
    Slider slider = wheel();
    slider.setSnapBehavior(Behavior::Always);
    slider.setNumberOfSnapMarks(0);
    slider.setAngleAndDistance({50, 1});
    EXPECT_NEAR(slider.getAngleAndDistance().angle, 50, 1e-3);
}

TEST(SSCircularSlider, aPressCountsOnTheKnobAndWhereItMayStand)
{
    const struct {
        bool center;
        bool nonEdge;
        bool counts;
        float x; ///< to the right of the centre; the knob stands at 86.5
    } cases[] = {
        {true, true, true, 40}, {true, true, true, 90.5F}, {true, true, false, -90.6F},
        {true, true, true, 94}, // on the knob
        {true, true, false, 94.6F}, {true, false, false, 40}, {true, false, true, 3.9F},
        {true, false, false, 4.1F}, {false, false, false, 3}, {false, false, true, -83.5F},
        {false, false, false, -83.4F}, {false, false, true, 79}, // on the knob
    };
    for (const auto& c : cases) {
        Slider slider = wheel();
        slider.setAngleAndDistance({90, 1});
        slider.setAllowsCenterPoint(c.center);
        slider.setAllowsNonEdgePositions(c.nonEdge);
        EXPECT_EQ(slider.mouseDown({100 + c.x, 100}, false), c.counts) << c.x;
        EXPECT_EQ(slider.isBallHighlighted(), c.counts);
    }
    Slider slider = wheel();
    slider.setEnabled(false);
    EXPECT_FALSE(slider.mouseDown({100, 100}, false));
}

TEST(SSCircularSlider, actsOnEveryMoveOrWhenLetGo)
{
    for (const bool continuous : {true, false}) {
        Slider slider = wheel();
        int actions = 0;
        slider.setContinuous(continuous);
        slider.setAction([&] { ++actions; });
        slider.mouseDragged({100, 100}, false); // not held
        slider.mouseUp();
        EXPECT_EQ(actions, 0);
        slider.mouseDown({100, 100}, false);
        slider.mouseDragged({100, 56.75F}, false);
        EXPECT_EQ(actions, continuous ? 2 : 0);
        slider.mouseDragged({100, -500}, false);
        EXPECT_NEAR(slider.ballCenter().y, 13.5, 1e-4);
        slider.mouseUp();
        EXPECT_EQ(actions, continuous ? 3 : 1);
    }
}

TEST(SSCircularSlider, tellsOnceOfAnUnknownSize)
{
    std::vector<std::string> lines;
    Log log([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_FALSE(Slider({60, 60}, &log).drawsPlainShapes());
    EXPECT_FALSE(Slider({200, 200}, &log).drawsPlainShapes());
    EXPECT_TRUE(lines.empty());
    EXPECT_TRUE(Slider({120, 60}, &log).drawsPlainShapes());
    EXPECT_TRUE(Slider({50, 50}, &log).drawsPlainShapes());
    EXPECT_EQ(lines,
        std::vector<std::string>{
            "Using Quartz appearance due to non-standard size for SSCircularSlider "
            "(120.000000x60.000000).  Standard sizes are 60x60 and 80x80."});
}

TEST(ZTColourPicker, picksWhitesFromLeftToRight)
{
    ZTColourPicker picker;
    Picked picked;
    picker.setDelegate(&picked);
    picker.mainSlider().mouseDown({13.5F, 100}, false);
    picker.mainSlider().mouseDragged({100, 100}, false);
    picker.mainSlider().mouseDragged({186.5F, 100}, false);
    picker.moveBrightnessTo(0.25F);
    EXPECT_EQ(picked.colours,
        (std::vector<Colour>{
            {0, 0, 1, 1, 9000}, {0, 0, 1, 1, 5750}, {0, 0, 1, 1, 2500}, {0, 0, 0.25F, 1, 2500}}));
    EXPECT_EQ(picker.mainSlider().brightness(), 0.25F);
}

TEST(ZTColourPicker, aWhiteThatIsOnlyShownKeepsItsTemperature)
{
    ZTColourPicker picker;
    for (const int kelvin : {2500, 2700, 3000, 3500, 4000, 5000, 5750, 6500, 9000}) {
        picker.setColour({0, 0, 0.5F, 1, kelvin});
        EXPECT_EQ(picker.getColor(), (Colour{0, 0, 0.5F, 1, kelvin}));
    }
    for (int kelvin = 2500; kelvin <= 9000; ++kelvin) {
        picker.setColour({0, 0, 0.5F, 1, kelvin});
        for (int i = 0; i < 9; ++i) // the knob is cut off to a whole kelvin, but does not wander
            picker.setColour(picker.getColor());
        EXPECT_TRUE(picker.kelvin() == kelvin || picker.kelvin() == kelvin - 1) << kelvin;
    }
}

TEST(ZTColourPicker, picksColoursWithTheKelvinLastUsed)
{
    ZTColourPicker picker;
    picker.setColour({0, 0, 1, 1, 2700});
    Picked picked;
    picker.setDelegate(&picked);
    picker.handleControl(ZTColourPicker::Control::Colours);
    EXPECT_FALSE(picker.isPickingWhites());
    picker.mainSlider().mouseDown({100, 13.5F}, false); // top
    picker.mainSlider().mouseDragged({56.75F, 100}, false); // half way to the left
    ASSERT_EQ(picked.colours.size(), 3U);
    EXPECT_EQ(picked.colours[0].saturation, 0);
    EXPECT_NEAR(picked.colours[1].hue, 0.25, 1e-5);
    EXPECT_NEAR(picked.colours[1].saturation, 1, 1e-5);
    EXPECT_NEAR(picked.colours[2].hue, 0.5, 1e-5);
    EXPECT_NEAR(picked.colours[2].saturation, 0.5, 1e-5);
    for (const Colour& colour : picked.colours)
        EXPECT_EQ(colour.kelvin, 2700);

    picker.switchToWhitesMode();
    EXPECT_EQ(picked.colours.back(), (Colour{0, 0, 1, 1, 2700}));
}

TEST(ZTColourPicker, showsAColour)
{
    const struct {
        bool whites;
        bool whitesAfter;
        Colour colour;
        Colour shown; ///< what the controls then stand for
    } cases[] = {
        {false, false, {0.25F, 0.5F, 0.5F, 1, 2700}, {0.25F, 0.5F, 0.5F, 1, 2700}},
        {false, false, {0.75F, 1, 0, 1, 2400}, {0.75F, 1, 0, 1, 3500}},
        {false, false, {0, 0, 0.5F, 1, 2700}, {1, 0, 0.5F, 1, 2700}},
        {true, true, {0.5F, 0.01F, 1, 1, 4000}, {0, 0, 1, 1, 4000}},
        {true, true, {0.5F, 0, 1, 1, 9100}, {0, 0, 1, 1, 3500}},
        {true, false, {0.5F, 0.02F, 1, 1, {}}, {0.5F, 0.02F, 1, 1, 3500}},
        // The turn from whites keeps the kelvin of the knob.
        {true, false, {0.5F, 1, 1, 1, 2700}, {0.5F, 1, 1, 1, 3500}},
    };
    for (const auto& c : cases) {
        ZTColourPicker picker;
        picker.setPickingWhites(c.whites);
        picker.setColour(c.colour);
        EXPECT_EQ(picker.isPickingWhites(), c.whitesAfter);
        const Colour shown = picker.getColor();
        EXPECT_NEAR(shown.hue, c.shown.hue, 1e-5);
        EXPECT_NEAR(shown.saturation, c.shown.saturation, 1e-5);
        EXPECT_EQ(shown.brightness, c.shown.brightness);
        EXPECT_EQ(shown.kelvin, c.shown.kelvin);
    }
}

TEST(WheelPainting, eachPlaceHasTheColourThatItsKnobGives)
{
    const struct {
        bool whites;
        Point offset;
        Rgba rgba;
    } cases[] = {
        {false, {0, 0}, {1, 1, 1, 1}},
        {false, {1, 0}, {1, 0, 0, 1}},
        {false, {-0.5F, 0}, {0.5F, 1, 1, 1}},
        {false, {0, 3}, {0.5F, 1, 0, 1}}, // hue 0.25
        {true, {-2, 0}, {0.717F, 0.921F, 0.996F, 1}},
        {true, {0, 0.7F}, {1, 1, 1, 1}},
        {true, {1, 0}, {0.996F, 0.808F, 0.565F, 1}},
    };
    for (const auto& c : cases) {
        const Rgba rgba = wheelColour(c.whites, c.offset);
        EXPECT_NEAR(rgba.red, c.rgba.red, 1e-4) << c.offset.x;
        EXPECT_NEAR(rgba.green, c.rgba.green, 1e-4) << c.offset.x;
        EXPECT_NEAR(rgba.blue, c.rgba.blue, 1e-4) << c.offset.x;
    }
    EXPECT_EQ(wheelShade(1), 0);
    EXPECT_LT(wheelShade(0), 1);
}

} // namespace lumeroom::test
