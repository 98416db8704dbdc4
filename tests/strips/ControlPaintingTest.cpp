#include "strips/ControlPainting.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

TEST(ControlPainting, aBarLiesInTheMiddleOfItsRoom)
{
    const SliderBar level = brightnessSliderBar({10, 20, 100, 24}, false);
    EXPECT_EQ(level.rectangle, (Rectangle{10, 30, 100, 4}));
    EXPECT_EQ(level.degrees, 0);
    EXPECT_EQ(level.cornerRadius, 2);
    EXPECT_EQ(level.alpha, 1);
    const SliderBar upright = warmthSliderBar({10, 20, 24, 100}, true);
    EXPECT_EQ(upright.rectangle, (Rectangle{20, 20, 4, 100}));
    EXPECT_EQ(upright.degrees, 270);
    EXPECT_EQ(upright.alpha, 0.75F);
    EXPECT_EQ(whitenessSliderBar({}, 0.5F, false).colours.front(), (Rgba{0, 1, 1, 1}));
}

TEST(ControlPainting, theOnOffButtonShowsAPaleVersionOfTheLampsColour)
{
    const Colour well{0, 1, 0.5F, 1, 2700};
    const struct {
        OnOffButtonLook look; ///< on, highlighted, dark
        std::vector<Rgba> fills;
    } cases[] = {
        {{false, false, false, well}, {{0.6F, 0.6F, 0.6F, 1}}},
        {{false, true, true, well}, {{0.6F, 0.6F, 0.6F, 1}}},
        {{true, false, false, well}, {{1, 0.67F, 0.67F, 0.5F}}},
        {{true, true, false, well}, {{0.6F, 0.402F, 0.402F, 0.5F}}},
        {{true, false, true, well}, {{0.66F, 0.66F, 0.66F, 1}, {1, 0.67F, 0.67F, 0.5F}}},
    };
    for (const auto& c : cases) {
        const auto paint = onOffButtonPaint({0, 0, 50, 50}, c.look);
        EXPECT_EQ(paint.oval, (Rectangle{10, 10, 30, 30}));
        ASSERT_EQ(paint.fills.size(), c.fills.size());
        for (std::size_t i = 0; i < c.fills.size(); ++i) {
            EXPECT_NEAR(paint.fills[i].red, c.fills[i].red, 1e-5F);
            EXPECT_NEAR(paint.fills[i].green, c.fills[i].green, 1e-5F);
            EXPECT_EQ(paint.fills[i].alpha, c.fills[i].alpha);
        }
    }
}

} // namespace lumeroom::test
