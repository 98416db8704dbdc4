#include "strips/ActionFilter.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

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
