#include "ResizeFromOutside.h"
#include "app/NavigationModel.h"
#include "app/ui/ControlPanelWindow.h"
#include "app/ui/NoticeView.h"
#include "strips/ui/Painting.h"
#include "strips/ui/RenamePopover.h"
#include "support/QtTestInput.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

namespace lumeroom {

TEST(ControlPanel, tellsTheEndOfAResizeOnceForEachSize)
{
    ControlPanelWindow panel;
    int told = 0;
    panel.setDidEndLiveResize([&] { ++told; });
    panel.show();
    panel.setContentSize({700, 400});
    test::resizeFromOutside(panel, {800, 500});
    ASSERT_TRUE(test::workUntil([&] { return told == 1; }));

    // A desktop that insists on a size is not told of it for ever.
    panel.setContentSize({700, 400});
    test::resizeFromOutside(panel, {800, 500});
    const auto* rest = panel.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(rest->isActive());
    ASSERT_TRUE(test::workUntil([&] { return !rest->isActive(); }));
    EXPECT_EQ(told, 1);

    // After another size of the program's own, it is the user's wish.
    panel.setContentSize({600, 350});
    test::resizeFromOutside(panel, {800, 500});
    EXPECT_TRUE(test::workUntil([&] { return told == 2; }));
}

TEST(ControlPanel, takesASizeOutsideOfItsLimits)
{
    ControlPanelWindow panel;
    panel.show();
    const struct {
        Size size;
        Size least;
        Size most;
    } cases[] = {
        {{400, 350}, {600, 350}, {1280, 350}},
        {{1500, 350}, {600, 350}, {1280, 350}},
        {{835, 200}, {835, 300}, {835, 900}},
    };
    for (const auto& c : cases) {
        panel.setContentSize(c.size);
        panel.setContentMaxSize(c.most);
        panel.setContentMinSize(c.least);
        QCoreApplication::processEvents();
        EXPECT_EQ(panel.contentSize(), c.size);
    }
    panel.setContentSize({600, 350});
    const QRect room = panel.screen()->availableGeometry();
    panel.move(room.right() - 650, room.top() + 5);
    panel.setContentSize({700, 350}); // grows over the edge, and goes back from it
    EXPECT_LE(panel.frameGeometry().right(), room.right());
    panel.setWindowState(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    const QSize full = panel.size();
    panel.setContentSize({500, 350});
    EXPECT_EQ(panel.size(), full);
}

TEST(ControlPanel, opensAtTheSizeAskedForWhateverComesBeforeIt)
{
    ControlPanelWindow panel;
    panel.setContentSize({640, 420});
    panel.menuBar()->addMenu("File");
    panel.show();
    EXPECT_EQ(panel.contentSize(), (Size{640, 420}));
    EXPECT_EQ(panel.centralWidget()->size(), QSize(640, 420));
}

TEST(ControlPanel, theNavigationBeginsAtTheFirstSwitchAndReachesTheGroups)
{
    ControlPanelWindow panel;
    NavigationModel model; // goes before the window, as the program's does
    model.deleteGroup.setEnabled(false);
    const auto button = [&](const char* name) { return test::named<QAbstractButton>(panel, name); };
    Rectangle frame;
    std::string switched;
    panel.setNavigation(model,
        {.allOn = [&] { switched += "on "; },
            .allOff = [&] { switched += "off "; },
            .makeGroup = [] {},
            .editGroup = [&](const Rectangle& pressed) { frame = pressed; },
            .deleteGroup = [&](const Rectangle&) { ADD_FAILURE(); }});
    panel.setContentSize({600, 300}); // the lowest of all layouts
    panel.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.focusWidget(), button("Lamps"));

    button("All on")->click();
    button("All off")->click();
    EXPECT_EQ(switched, "on off ");
    auto* edit = button("Edit group");
    edit->click();
    EXPECT_EQ(frame.y, static_cast<float>(edit->mapTo(&panel, QPoint()).y()));
    button("Delete group")->click(); // is greyed
    const auto* lowestSwitch = button("All lamps");
    EXPECT_LE(lowestSwitch->mapTo(&panel, QPoint(0, lowestSwitch->height())).y(), frame.y);
}

TEST(ControlPanel, twoClicksOnASwitchMeanOnlyThis)
{
    ControlPanelWindow panel;
    NavigationModel model;
    std::string done;
    model.groups.setToolTip("No groups yet");
    model.groups.setAction([&] { done += model.groups.state() ? "on " : "off "; });
    model.showOnly = [&](ButtonModel& kind) {
        EXPECT_EQ(&kind, &model.groups);
        done += "only ";
    };
    const auto hasDone = [&](const char* expected) { return std::exchange(done, "") == expected; };
    panel.setNavigation(model, {});
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(test::workUntil([&] { return panel.isActiveWindow(); }));
    auto* groups = test::named<QAbstractButton>(panel, "Groups");
    QTest::mouseClick(groups, Qt::LeftButton);
    EXPECT_TRUE(hasDone("on ")); // at once
    EXPECT_EQ(QToolTip::text(), "No groups yet");
    QTest::mouseClick(groups, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(hasDone("only "));
    QTest::mouseClick(groups, Qt::LeftButton);
    EXPECT_TRUE(hasDone("off "));
    QTest::mouseDClick(groups, Qt::LeftButton);
    QTest::mouseClick(groups, Qt::LeftButton); // one too many
    EXPECT_TRUE(hasDone("only "));
    EXPECT_FALSE(showsFocusRing(*groups));
    QTest::keyClick(groups, Qt::Key_Space);
    EXPECT_TRUE(hasDone("on "));
    EXPECT_TRUE(showsFocusRing(*groups));
    QTest::keyClick(groups, Qt::Key_Space);
    EXPECT_TRUE(hasDone("off "));
    QTest::mousePress(groups, Qt::LeftButton);
    EXPECT_FALSE(showsFocusRing(*groups));
    // The first click was on what stood here before.
    QTest::mouseDClick(test::named<QAbstractButton>(panel, "Tags"), Qt::LeftButton);
    EXPECT_TRUE(hasDone(""));

    auto* read = QAccessible::queryAccessibleInterface(groups);
    EXPECT_EQ(read->role(), QAccessible::CheckBox);
    read->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(hasDone("on "));
    EXPECT_TRUE(read->state().checked);
}

TEST(ControlPanel, aNoticeFillsTheRoomThatThereIs)
{
    ControlPanelWindow panel;
    NavigationModel model;
    panel.setNavigation(model, {});
    const auto button = [&](const QString& text) -> QPushButton* {
        for (auto* each : panel.findChildren<QPushButton*>()) {
            if (each->text() == text && each->isVisible())
                return each;
        }
        return nullptr;
    };
    const auto remove = [&] {
        panel.showNotice({});
        EXPECT_FALSE(button("Look again")); // which is this one
    };
    const PanelNotice notice{"No lamps found", "Asked <b>everybody</b>.\nIn vain.",
        {{"Other", [] {}}, {"Look again", remove}}};
    panel.show();
    panel.showNotice(notice);
    for (const Size size : {Size{900, 500}, Size{300, 300}}) {
        panel.setContentSize(size);
        QCoreApplication::processEvents();
        const bool wide = size.width > 800;
        EXPECT_EQ(button("Other")->y() == button("Look again")->y(), wide);
        const auto* area = panel.findChild<NoticeView*>();
        const int right
            = button("Look again")->mapTo(area, QPoint(button("Look again")->width(), 0)).x();
        EXPECT_LE(right, area->width());
        EXPECT_EQ(area->size(), area->parentWidget()->size());
    }
    auto* again = button("Look again");
    again->setFocus();
    std::string done;
    const auto next = [&] {
        done += "next ";
        panel.showNotice(PanelNotice{"No lamps found", "", {{"Stop", remove}}});
    };
    panel.showNotice(PanelNotice{"No lamps", "Still", {{"Other", [] {}}, {"Look again", next}}});
    EXPECT_TRUE(again->hasFocus()); // its hand has nothing else under it
    EXPECT_EQ(panel.findChild<NoticeView*>()->accessibleName(), "No lamps");
    again->click();
    EXPECT_EQ(done, "next ");
    EXPECT_FALSE(button("Other"));
    QCoreApplication::processEvents();
    button("Stop")->setFocus();
    button("Stop")->click();
    EXPECT_EQ(panel.focusWidget()->accessibleName(), "Lamps");
}

TEST(ControlPanel, anAlertThatEndsWithoutAButtonIsDismissed)
{
    ControlPanelWindow panel;
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->hide(); });
    EXPECT_EQ(panel.runModal({"Are you sure?", "", {"Delete", "Cancel"}}), 1);
}

TEST(RenamePopover, takesWholeCharactersThatALampHasRoomForUnlessItIsCancelled)
{
    const QString umlauts(20, QChar(0xE4));
    const QString digits("0123456789012345678901234567890");
    const struct {
        QString before, typed, name; ///< no name where it is cancelled
        Qt::Key first, last;
    } cases[] = {
        {"Desk", "Shelf", {}, Qt::Key_unknown, Qt::Key_Escape},
        {"Desk", "x" + umlauts, "x" + umlauts.first(15), Qt::Key_unknown, Qt::Key_Return},
        {umlauts, "", umlauts, Qt::Key_unknown, Qt::Key_Return}, // not touched
        {digits, "abc", "a" + digits, Qt::Key_Home, Qt::Key_Return}, // only what is typed is cut
    };
    for (const auto& c : cases) {
        QString name;
        auto* popover = new RenamePopover(c.before, [&](const QString& text) { name = text; }, {});
        popover->show();
        auto* field = popover->findChild<QLineEdit*>();
        test::key(*field, c.first);
        if (!c.typed.isEmpty())
            field->insert(c.typed); // as pasted over what is selected
        QTest::keyClick(field, c.last);
        EXPECT_EQ(name, c.name);
        QCoreApplication::processEvents();
    }
}

} // namespace lumeroom
