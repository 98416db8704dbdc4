#include "app/NavigationModel.h"
#include "app/ui/ControlPanelWindow.h"
#include "app/ui/LayoutSwitch.h"
#include "strips/LayoutManager.h"
#include "support/QtTestInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QResizeEvent>
#include <QTimer>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>

namespace lumeroom {

namespace {

/// As by the user's hand on the window's edge, or by the desktop.
void resizeFromOutside(QWidget& window, QSize size)
{
    const QSize before = window.size();
    window.resize(size);
    QResizeEvent event(size, before);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&window, &event); // to send it would take that mark away
}

QAbstractButton* named(const QWidget& parent, const QString& name)
{
    for (auto* button : parent.findChildren<QAbstractButton*>()) {
        if (button->accessibleName() == name)
            return button;
    }
    return nullptr;
}

} // namespace

TEST(ControlPanel, tellsTheEndOfAResizeOnceForEachSize)
{
    ControlPanelWindow panel;
    int told = 0;
    panel.setDidEndLiveResize([&] { ++told; });
    panel.show();
    panel.setContentSize({700, 400});
    resizeFromOutside(panel, {800, 500});
    ASSERT_TRUE(test::workUntil([&] { return told == 1; }));

    // A desktop that insists on a size is not told of it for ever.
    panel.setContentSize({700, 400});
    resizeFromOutside(panel, {800, 500});
    resizeFromOutside(panel, {810, 510});
    ASSERT_TRUE(test::workUntil([&] { return told == 2; }));
    panel.setContentSize({700, 400});
    resizeFromOutside(panel, {810, 510});
    const auto* rest = panel.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(rest->isActive());
    ASSERT_TRUE(test::workUntil([&] { return !rest->isActive(); }));
    EXPECT_EQ(told, 2);

    // After another size of the program's own, it is the user's wish.
    panel.setContentSize({600, 350});
    resizeFromOutside(panel, {810, 510});
    EXPECT_TRUE(test::workUntil([&] { return told == 3; }));
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
}

TEST(ControlPanel, theNavigationBeginsAtTheFirstSwitchAndReachesTheGroups)
{
    ControlPanelWindow panel;
    NavigationModel model; // goes before the window, as the program's does
    model.deleteGroup.setEnabled(false);
    int made = 0;
    Rectangle frame;
    panel.setNavigation(model,
        {.allOn = {},
            .allOff = {},
            .makeGroup = [&] { ++made; },
            .editGroup = [&](const Rectangle& button) { frame = button; },
            .deleteGroup = [&](const Rectangle&) { ADD_FAILURE(); }});
    panel.setContentSize({600, 300}); // the lowest of all layouts
    panel.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.focusWidget(), named(panel, "Lights"));

    named(panel, "Make group...")->click();
    EXPECT_EQ(made, 1);
    auto* edit = named(panel, "Edit group");
    edit->click();
    EXPECT_EQ(frame.y, static_cast<float>(edit->mapTo(&panel, QPoint()).y()));
    EXPECT_GT(frame.height, 20);
    named(panel, "Delete group")->click(); // is greyed
    const auto* lowestSwitch = named(panel, "All");
    EXPECT_LE(lowestSwitch->mapTo(&panel, QPoint(0, lowestSwitch->height())).y(), frame.y);
}

TEST(ControlPanel, anAlertThatEndsWithoutAButtonIsDismissed)
{
    ControlPanelWindow panel;
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->hide(); });
    EXPECT_EQ(panel.runModal({"Are you sure?", "", {"Delete", "Cancel"}}), 1);
}

TEST(LayoutSwitch, followsTheLayoutAndAsksForIt)
{
    std::vector<int> chosen;
    LayoutSwitch layouts([&](int theme) { chosen.push_back(theme); }, nullptr);
    const auto pressed = [&] {
        QStringList names;
        for (const auto* segment : layouts.findChildren<QAbstractButton*>()) {
            if (segment->isChecked())
                names << segment->accessibleName();
        }
        return names;
    };
    EXPECT_EQ(pressed(), QStringList());
    layouts.select(theme::kSquareControl);
    EXPECT_EQ(pressed(), QStringList{"Grid"});
    named(layouts, "Grid")->click(); // shown already, but asked for
    named(layouts, "Slim rows")->click();
    EXPECT_EQ(pressed(), QStringList{"Slim rows"});
    layouts.select(17);
    EXPECT_EQ(pressed(), QStringList());
    named(layouts, "Upright strips")->click();
    EXPECT_EQ(chosen, (std::vector{2, 3, 0}));
}

} // namespace lumeroom
