#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/Records.h"
#include "strips/ColourArchive.h"
#include "strips/ColourWellModel.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

struct ColourWell : ::testing::Test, ControlTarget, ColourWellPopover {
    ColourWell()
    {
        well->setFilteredTarget(this);
        well->setPopover(this);
        well->setColourPicker(picker);
    }
    void handleControl(const ControlModel&) override { handled.push_back(well->colour()); }
    void unfilteredAction(const ControlModel&) override { }
    void showAtWell(Edge preferredEdge) override
    {
        EXPECT_EQ(static_cast<int>(preferredEdge), 2);
        EXPECT_EQ(picker->delegate(), nullptr);
    }
    static ColourDrop archiveOf(Colour colour) { return {true, archivedColour(colour), true, {}}; }

    ManualRunLoop loop;
    UserDefaults defaults;
    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
    std::shared_ptr<ZTColourPicker> picker = std::make_shared<ZTColourPicker>();
    std::unique_ptr<ColourWellModel> well = std::make_unique<ColourWellModel>(loop, defaults, log);
    std::vector<Colour> handled;
};

TEST_F(ColourWell, opensThePickerInTheColoursMode)
{
    const struct {
        bool whitesBefore;
        Colour colour;
        bool whites;
    } cases[] = {
        {false, {0.5F, 1, 1, 1, 3000}, false},
        {true, {0.5F, 1, 1, 1, 3000}, false},
        {false, {0.5F, 0.01F, 1, 1, 3000}, true},
        {false, {0.5F, 0.01F, 1, 1, 2499}, false},
        {true, {0.5F, 0, 1, 1, {}}, true},
    };
    for (const auto& c : cases) {
        picker->setPickingWhites(c.whitesBefore);
        well->setColour(c.colour);
        well->showThePopover();
        EXPECT_EQ(picker->isPickingWhites(), c.whites);
        EXPECT_EQ(well->colour(), c.colour); // loading writes nothing back
        EXPECT_FALSE(well->hasPendingAction());
    }
}

TEST_F(ColourWell, picksReachTheTargetThroughTheFilter)
{
    well->setColour({0, 0, 1, 1, 4000});
    well->showThePopover();
    for (const float brightness : {0.8F, 0.6F, 0.4F})
        picker->moveBrightnessTo(brightness);
    EXPECT_TRUE(handled.empty());
    EXPECT_TRUE(well->hasPendingAction());
    loop.advance(Seconds(0.1));
    EXPECT_EQ(handled, (std::vector<Colour>{{0, 0, 0.4F, 1, 4000}}));

    ColourWellModel other(loop, defaults, log);
    other.setPopover(this);
    other.setColourPicker(picker);
    other.showThePopover();
    picker->moveBrightnessTo(0.2F);
    EXPECT_EQ(well->colour().brightness, 0.4F);
    EXPECT_EQ(other.colour().brightness, 0.2F);
    well->setColourPicker(nullptr); // the picker edits the other
    EXPECT_EQ(picker->delegate(), &other);
}

TEST_F(ColourWell, scrollingDims)
{
    const struct {
        std::optional<Value> speed;
        float brightness;
        float deltaY;
        float level; ///< 0 to 255
        std::optional<int> kelvin;
        std::optional<int> kelvinAfter;
    } cases[] = {
        {{}, 0.2F, 10, 71, 9000, 9000},
        {{}, 0.2F, -10, 31, 9001, {}},
        {1.5, 0.2F, 10, 66, 2500, 2500},
        {"4", 0.2F, -5, 31, 2499, {}},
        {2.0, 0.01F, -50, 0.5F, {}, {}},
        {2.0, 0.99F, 50, 255, {}, {}},
        {"nan", 0.2F, 0, 51, 3000, 3000},
    };
    for (const auto& c : cases) {
        defaults.removeObject(keys::kScrollToDimTrackingSpeed);
        if (c.speed)
            defaults.setObject(keys::kScrollToDimTrackingSpeed, *c.speed);
        well->setColour({0.3F, 0.7F, c.brightness, 1, c.kelvin});
        well->scrollWheel(c.deltaY);
        EXPECT_EQ(well->colour().hue, 0.3F);
        EXPECT_EQ(well->colour().saturation, 0.7F);
        EXPECT_NEAR(well->colour().brightness * 255, c.level, 1e-3);
        EXPECT_EQ(well->colour().kelvin, c.kelvinAfter);
        EXPECT_TRUE(well->hasPendingAction());
        loop.advance(Seconds(0.1));
        EXPECT_EQ(handled.size(), 1U);
        handled.clear();
    }
    well->setEnabled(false);
    well->scrollWheel(-10);
    EXPECT_FALSE(well->hasPendingAction());
}

TEST_F(ColourWell, aDroppedColourActsAtOnceAndSetsThePickersMode)
{
    const struct {
        Colour colour;
        bool whites;
    } cases[] = {
        {{0.5F, 1, 1, 1, 3000}, false},
        {{0, 0, 0.5F, 1, 3000}, true},
        {{0, 0.0039F, 0.5F, 1, 3000}, true}, // less than one of 255
        {{0, 0.004F, 0.5F, 1, 3000}, false},
        {{0, 0, 0.5F, 1, 2400}, false},
    };
    for (const auto& c : cases) {
        picker->setPickingWhites(!c.whites);
        EXPECT_TRUE(well->performDragOperation(archiveOf(c.colour)));
        EXPECT_EQ(handled, std::vector<Colour>{c.colour});
        EXPECT_FALSE(well->hasPendingAction());
        EXPECT_EQ(picker->isPickingWhites(), c.whites);
        handled.clear();
    }
    EXPECT_TRUE(well->performDragOperation({false, {}, true, Colour{0.2F, 1, 1, 1, {}}}));
    EXPECT_EQ(handled, (std::vector<Colour>{{0.2F, 1, 1, 1, {}}}));
    EXPECT_TRUE(lines.empty());

    well->setCapabilities(kCapabilitiesWhiteLamp);
    EXPECT_TRUE(well->performDragOperation(archiveOf({0.5F, 1, 0.4F, 1, 3000})));
    EXPECT_EQ(well->colour(), (Colour{0, 0, 0.4F, 1, 3000}));
}

} // namespace lumeroom::test
