#include "strips/ZTColourPicker.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumeroom::test {

namespace {

using Slider = SSCircularSlider;

struct Picked : ZTColourPickerDelegate {
    void userHasPickedColour(const Colour& colour) override { colours.push_back(colour); }
    void userHasCancelled() override { }
    std::vector<Colour> colours;
};

} // namespace

TEST(SSCircularSlider, itsKnobGoesWithTheMouseWithinItsReach)
{
    const struct {
        float degrees; ///< clockwise from the top
        Point offset;
    } places[]
        = {{0, {0, 1}}, {90, {1, 0}}, {180, {0, -1}}, {270, {-1, 0}}, {315, {-0.70711F, 0.70711F}}};
    for (const auto& place : places) {
        Slider slider({200, 200});
        slider.setAngleAndDistance({place.degrees, 3}); // capped at 1
        EXPECT_NEAR(slider.getXOffsetAndYOffset().x, place.offset.x, 1e-5) << place.degrees;
        EXPECT_NEAR(slider.getXOffsetAndYOffset().y, place.offset.y, 1e-5) << place.degrees;
        slider.setXOffsetAndYOffset(place.offset);
        EXPECT_NEAR(slider.getAngleAndDistance().angle, place.degrees, 1e-3);
    }
    Slider slider({200, 200});
    int actions = 0;
    slider.setAction([&] { ++actions; });
    slider.setAngleAndDistance({90, 1}); // 86.5 to the right
    for (const float miss : {94.6F, -90.6F})
        EXPECT_FALSE(slider.mouseDown({100 + miss, 100})) << miss;
    slider.mouseDragged({100, 100}); // not held
    EXPECT_EQ(actions, 0);
    for (const float hit : {94.0F, 90.5F, 40.0F, -90.5F}) // the first on the knob
        EXPECT_TRUE(slider.mouseDown({100 + hit, 100})) << hit;
    slider.mouseDragged({100, -500});
    EXPECT_NEAR(slider.ballCenter().y, 13.5, 1e-4);
    EXPECT_TRUE(slider.isBallHighlighted());
    slider.mouseUp();
    EXPECT_FALSE(slider.isBallHighlighted());
    EXPECT_EQ(actions, 5);
}

TEST(ZTColourPicker, picksWhitesFromLeftToRight)
{
    ZTColourPicker picker;
    Picked picked;
    picker.setDelegate(&picked);
    picker.mainSlider().mouseDown({13.5F, 100});
    picker.mainSlider().mouseDragged({100, 100});
    picker.mainSlider().mouseDragged({186.5F, 100});
    picker.moveBrightnessTo(0.25F);
    EXPECT_EQ(picked.colours,
        (std::vector<Colour>{
            {0, 0, 1, 1, 9000}, {0, 0, 1, 1, 5750}, {0, 0, 1, 1, 2500}, {0, 0, 0.25F, 1, 2500}}));
    EXPECT_EQ(picker.mainSlider().brightness(), 0.25F);
}

TEST(ZTColourPicker, picksColoursWithTheKelvinLastUsed)
{
    ZTColourPicker picker;
    picker.setColour({0, 0, 1, 1, 2700});
    Picked picked;
    picker.setDelegate(&picked);
    picker.handleControl(ZTColourPicker::Control::Colours);
    EXPECT_FALSE(picker.isPickingWhites());
    picker.mainSlider().mouseDown({100, 13.5F}); // top
    picker.mainSlider().mouseDragged({56.75F, 100}); // half way to the left
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

} // namespace lumeroom::test
