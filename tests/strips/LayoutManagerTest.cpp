#include "strips/LayoutManager.h"

#include "base/Log.h"
#include "base/UserDefaults.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

struct FakeGeometry : PanelGeometry {
    Size contentSize() const override { return content; }
    Size screenSize() const override { return {1600, 900}; }
    Size content{800, 500};
};

struct Layouts : ::testing::Test {
    std::vector<Point> place(LayoutManager& layout, int strips, Size size)
    {
        std::vector<Point> points;
        layout.reset();
        for (int i = 0; i < strips; ++i)
            points.push_back(layout.getNextPointFor(size));
        return points;
    }
    LayoutManager layoutOf(std::int64_t theme)
    {
        defaults.setObject("currentTheme", theme);
        return {defaults, log, panel};
    }

    UserDefaults defaults;
    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
    FakeGeometry panel;
};

TEST_F(Layouts, rowsAndColumnsGrowByTheSizeOfTheStrips)
{
    const struct {
        int theme;
        std::string name;
        std::vector<Point> points;
        Size view, window, least, most;
        Rectangle popover;
        bool horizontally;
    } cases[] = {
        {0, "SingleControl", {{0, 0}, {200, 0}, {400, 0}}, {600, 50}, {735, 50}, {600, 50},
            {1600, 50}, {0, 0, 700, 50}, true},
        {1, "HorizontalControl", {{0, 0}, {0, 50}, {0, 100}}, {200, 150}, {335, 300}, {335, 300},
            {335, 900}, {650, 0, 50, 7500}, false},
        {3, "thinControl", {{0, 0}, {0, 50}, {0, 100}}, {200, 150}, {335, 300}, {335, 300},
            {335, 900}, {650, 0, 50, 7500}, false},
    };
    for (const auto& c : cases) {
        LayoutManager layout = layoutOf(c.theme);
        EXPECT_EQ(place(layout, 3, {200, 50}), c.points) << c.name;
        EXPECT_EQ(place(layout, 3, {200, 50}), c.points) << "from the start again";
        EXPECT_EQ(layout.stripLayoutName(), c.name);
        EXPECT_EQ(layout.getViewSize(), c.view) << c.name;
        EXPECT_EQ(layout.getWindowSize(), c.window) << c.name;
        EXPECT_EQ(layout.getMinWindowSize(), c.least) << c.name;
        EXPECT_EQ(layout.getMaxWindowSize(), c.most) << c.name;
        EXPECT_EQ(layout.getRectFormakeGroupPopover(700), c.popover) << c.name;
        EXPECT_EQ(layout.shouldScrollHorizontally(), c.horizontally);
        EXPECT_EQ(layout.shouldScrollVertically(), !c.horizontally);
    }
}

TEST_F(Layouts, theGridWrapsToTheWindow)
{
    LayoutManager grid = layoutOf(theme::kSquareControl);
    panel.content = {135 + 300, 500}; // exactly three across
    EXPECT_EQ(place(grid, 5, {100, 80}),
        (std::vector<Point>{{0, 0}, {100, 0}, {200, 0}, {0, 80}, {100, 80}}));
    EXPECT_EQ(grid.getViewSize(), (Size{300, 160}));
    EXPECT_EQ(grid.getWindowSize(), panel.content);
    EXPECT_EQ(grid.getMinWindowSize(), (Size{300, 300}));
    EXPECT_EQ(grid.getMaxWindowSize(), (Size{5000, 5000}));
    EXPECT_EQ(grid.getRectFormakeGroupPopover(300), (Rectangle{250, 0, 50, 160}));

    panel.content.width -= 1;
    EXPECT_EQ(place(grid, 3, {100, 80}), (std::vector<Point>{{0, 0}, {100, 0}, {0, 80}}));
    panel.content.width = 300; // too narrow for two
    EXPECT_EQ(place(grid, 3, {100, 80}), (std::vector<Point>{{0, 0}, {0, 80}, {0, 160}}));
}

TEST_F(Layouts, eachThemeRemembersItsWindow)
{
    LayoutManager layout = layoutOf(theme::kHorizontalControl);
    EXPECT_FALSE(layout.hasPreviousForCurrentTheme());
    panel.content = {955, 120};
    layout.saveWindowState();
    layout.setTheme(theme::kSingleControl);
    EXPECT_FALSE(layout.hasPreviousForCurrentTheme());
    EXPECT_EQ(defaults.get(keys::kCurrentTheme), theme::kHorizontalControl);
    panel.content = {5000, 350};
    layout.saveWindowState();
    EXPECT_EQ(defaults.get(keys::kCurrentTheme), theme::kSingleControl);

    // What is stored stands above the limits, in the one direction that the user chooses.
    place(layout, 2, {200, 350});
    EXPECT_EQ(layout.getWindowSize(), (Size{5000, 350}));
    LayoutManager column = layoutOf(theme::kHorizontalControl);
    EXPECT_TRUE(column.hasPreviousForCurrentTheme());
    place(column, 9, {820, 56});
    EXPECT_EQ(column.getWindowSize(), (Size{955, 120}));
}

TEST_F(Layouts, aThemeThatDoesNotExistShowsNothing)
{
    for (const auto number : std::initializer_list<std::int64_t>{4, 99, -1, 1LL << 32}) {
        LayoutManager layout = layoutOf(number);
        EXPECT_FALSE(layout.themeExists());
        EXPECT_EQ(place(layout, 2, {200, 50}), (std::vector<Point>{{}, {}}));
        EXPECT_EQ(layout.stripLayoutName(), "");
        EXPECT_EQ(layout.getWindowSize(), Size());
        layout.saveWindowState();
        EXPECT_FALSE(layout.hasPreviousForCurrentTheme());
    }
    EXPECT_EQ(lines.size(), 4U); // each said so
    defaults.removeObject("currentTheme");
    EXPECT_EQ(LayoutManager(defaults, log, panel).theme(), theme::kSingleControl);
}

} // namespace lumeroom::test
