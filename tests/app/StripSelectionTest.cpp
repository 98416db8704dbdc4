#include "app/StripSelection.h"

#include "FakePanel.h"
#include "base/UserDefaults.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

TEST(StripSelection, keepsTheRightmostButton)
{
    ManualRunLoop loop;
    UserDefaults defaults;
    Log log([](std::string_view) {});
    StripCollection strips(defaults, log);
    StripSelection selection(strips);
    const auto add = [&](const std::string& id, StripType type, float x) {
        auto strip = std::make_shared<LampControlStrip>(id, type, loop);
        auto row = std::make_unique<FakeRow>(*strip, Size{100, 50});
        row->setOrigin({x, 0}, false);
        strip->setControlStripView(std::move(row));
        strips.add(strip);
        return strip;
    };
    const auto lamp = add("1", StripType::Lamp, 0);
    const auto group = add("1", StripType::Group, 300);
    selection.setRightmostSelectionButtonOf(lamp);
    selection.deselectAndShowAllLampSelectionButtons(); // none is right of 0
    EXPECT_EQ(selection.rightmostSelectionButton(), &lamp->getSelectedButton());
    const auto far = add("2", StripType::Zone, 200);
    add("3", StripType::Lamp, 200);
    group->setSelected(true);
    group->showSelectedButton(false);
    selection.deselectAndShowAllLampSelectionButtons();
    EXPECT_EQ(selection.rightmostSelectionButton(), &far->getSelectedButton()); // the first of two
    EXPECT_TRUE(group->isSelected());
    EXPECT_TRUE(group->getSelectedButton().isHidden());
    far->setSelected(true);
    EXPECT_EQ(selection.getSelectedLampStrips(), Strips{far}); // groups are no lamps
    selection.deselectAndShowAllGroupSelectionButtons();
    EXPECT_EQ(selection.rightmostSelectionButton(), &group->getSelectedButton());
    EXPECT_FALSE(group->isSelected());
    EXPECT_TRUE(far->isSelected());
    group->setSelected(true);
    selection.setSelectedLampStripsAndShow({lamp});
    EXPECT_EQ(selection.getSelectedLampStrips(), Strips{lamp});
    EXPECT_FALSE(group->isSelected());
}

} // namespace lumeroom::test
