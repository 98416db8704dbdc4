#include "strips/LampSelectionView.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

TEST(LampSelectionView, lampsAreChosenByTag)
{
    LampSelectionView view;
    EXPECT_TRUE(view.getSelectedIDs().empty());
    for (const int tag : {7, 3, 9})
        view.addCheckbox(std::make_shared<ButtonModel>(tag));
    EXPECT_TRUE(view.getSelectedIDs().empty());
    view.checkboxWithTag(9)->press();
    view.checkboxWithTag(7)->press();
    EXPECT_EQ(view.getSelectedIDs(), (std::vector<int>{7, 9}));
    EXPECT_FALSE(view.checkboxWithTag(8));
    EXPECT_TRUE(view.deselectAll().empty());
    EXPECT_TRUE(view.getSelectedIDs().empty());
}

TEST(ActionFilter, aChangeWhileItActsIsPartOfTheSameAction)
{
    ManualRunLoop loop;
    int fired = 0;
    std::function<void()> change;
    ActionFilter filter(loop, [&] {
        ++fired;
        change();
        EXPECT_TRUE(filter.isPending());
    });
    change = [&] { filter.controlDidChange(); };
    change();
    loop.advance(Seconds(1));
    EXPECT_EQ(fired, 1);
    change();
    loop.advance(Seconds(1));
    EXPECT_EQ(fired, 2);
}

} // namespace lumeroom::test
