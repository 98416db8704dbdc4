#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "app/ui/NoticeView.h"
#include "app/ui/WorkflowPopoverView.h"
#include "strips/ui/Painting.h"
#include "strips/ui/RenamePopover.h"
#include "strips/ui/SliderView.h"
#include "support/EngineHarness.h"
#include "support/QtTestInput.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolTip>
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
    const auto* rest = panel.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(rest->isActive());
    ASSERT_TRUE(test::workUntil([&] { return !rest->isActive(); }));
    EXPECT_EQ(told, 1);

    // After another size of the program's own, it is the user's wish.
    panel.setContentSize({600, 350});
    resizeFromOutside(panel, {800, 500});
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

/// The panel's window over an engine with the clock in hand, with twenty slim rows, of which the
/// first two are in the group "Den".
struct PanelWindow : test::EngineHarness {
    PanelWindow()
    {
        defaults.setObject("currentTheme", 3);
        for (unsigned n = 1; n <= 20; ++n)
            addLamp(n, {.brightness = 30000, .label = "Lamp " + std::to_string(n)});
        for (unsigned n = 1; n <= 2; ++n)
            receive(test::stateGrouping(53, n, 0xA1, "Den"));
        controller = std::make_unique<ManualController>(loop, defaults, log, engine(), panel);
        controller->awakeFromNib();
        panel.show();
        controller->applicationDidFinishLaunching();
        panel.activateWindow();
        QCoreApplication::processEvents();
    }
    template <typename View = QWidget> View* control(const QString& name)
    {
        return test::named<View>(panel, name);
    }
    QString focused() const
    {
        return panel.focusWidget() ? panel.focusWidget()->accessibleName() : QString();
    }
    void rebuild() { controller->panelSetUp().refreshSetUpUsingRecycling(true); }
    WorkflowPopoverView* popover() const
    {
        for (auto* view : panel.findChildren<WorkflowPopoverView*>()) {
            if (view->isVisible())
                return view;
        }
        return nullptr;
    }
    /// The part of the popover with this text.
    template <typename View> View* popoverShows(const QString& text) const
    {
        const auto parts = popover()->findChildren<View*>();
        const auto found = std::find_if(
            parts.begin(), parts.end(), [&](const View* part) { return part->text() == text; });
        return found == parts.end() ? nullptr : *found;
    }

    ControlPanelWindow panel;
    std::unique_ptr<ManualController> controller;
};

TEST_F(PanelWindow, aRebuildDisturbsNothingThatAPersonIsDoing)
{
    resizeFromOutside(panel, {960, 400});
    controller->panelSetUp().layoutManager().saveWindowState();
    rebuild();
    QScrollBar& bar = *panel.findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 100);
    auto* slider = control<SliderView>("Lamp 7, brightness");
    slider->setFocus();
    bar.setValue(77);
    rebuild();
    EXPECT_EQ(bar.value(), 77);
    EXPECT_EQ(panel.focusWidget(), slider);

    // A slider in hand: the rebuild waits.
    const int told = slider->value();
    test::mouse(*slider, QEvent::MouseButtonPress, slider->width() / 2.0);
    controller->switchTheme(1);
    EXPECT_EQ(control<SliderView>("Lamp 7, brightness"), slider);
    test::mouse(*slider, QEvent::MouseButtonRelease, 0);
    EXPECT_NE(slider->value(), told);
    loop.advance(Seconds(6));
    auto* anew = control<SliderView>("Lamp 7, brightness");
    EXPECT_NE(anew, slider);
    EXPECT_EQ(panel.focusWidget(), anew); // of another layout, but the same control

    // Down to a group, and back to where the keyboard was.
    control("Groups")->setFocus();
    control<QAbstractButton>("Groups")->click();
    EXPECT_EQ(focused(), "Groups");
    auto* into = control<QAbstractButton>("Den, view contents");
    into->setFocus();
    into->click();
    EXPECT_EQ(focused(), "Back");
    control<QAbstractButton>("Back")->click();
    EXPECT_EQ(focused(), "Den, view contents");
}

TEST_F(PanelWindow, aLetterBeginsANameAndEscapeGivesTheKeyboardBack)
{
    ASSERT_TRUE(test::workUntil([&] { return panel.isActiveWindow(); }));
    const QSize before = panel.size();
    const auto* rows = panel.findChild<QScrollArea*>();
    const QSize room = rows->size();
    auto* slider = control<SliderView>("Lamp 7, brightness");
    auto* field = control<QLineEdit>("Find a lamp");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_X, Qt::AltModifier);
    QTest::keyClick(slider, Qt::Key_Space);
    EXPECT_FALSE(field->isVisible());
    QTest::keyClick(slider, Qt::Key_L);
    EXPECT_TRUE(field->hasFocus());
    for (const char letter : {'a', 'm', 'p'})
        QTest::keyClick(field, letter);
    QTest::keyClick(field, Qt::Key_Space);
    QTest::keyClick(field, '2');
    EXPECT_EQ(field->text(), "lamp 2");
    EXPECT_EQ(field->accessibleDescription(), "2 of 20");
    EXPECT_FALSE(slider->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(rows->size(), room);
    QTest::keyClick(field, Qt::Key_Backtab);
    EXPECT_EQ(focused(), "All off");
    control("Show all")->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(focused().startsWith("Lamp 2, ")) << focused().toStdString();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Backtab);
    QTest::keyClick(panel.focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(field->hasFocus());
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(panel.focusWidget(), slider);
    EXPECT_EQ(panel.size(), before);

    // Escape and Return are the field's before the popover's, and a letter is the popover's before
    // the field's.
    control<QAbstractButton>("Make group...")->click();
    QTest::keyClick(panel.focusWidget(), Qt::Key_A);
    EXPECT_FALSE(field->isVisible());
    control("Lamp 3, selected")->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(popoverShows<QPushButton>("Make Group")->isEnabled());
    panel.openFind();
    EXPECT_TRUE(field->hasFocus());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(popover());
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(popover());
    panel.openFind();
    control("Lamp 3, selected")->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(popover());
}

TEST_F(PanelWindow, aWorkflowPopoverHearsTheKeyboardAndGivesItBack)
{
    ASSERT_TRUE(test::workUntil([&] { return panel.isActiveWindow(); }));
    auto* slider = control<SliderView>("Lamp 1, brightness");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Tab);
    const QString next = focused();
    const auto begin = [&] {
        slider->setFocus();
        control<QAbstractButton>("Make group...")->click();
        ASSERT_TRUE(popover());
        EXPECT_EQ(focused(), "name");
        EXPECT_FALSE(popoverShows<QPushButton>("Make Group")->isEnabled());
        control("Lamp 3, selected")->setFocus();
        QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
        QTest::keyClick(panel.focusWidget(), Qt::Key_Tab); // past what is under the veil
        EXPECT_EQ(focused(), "Lamp 4, selected");
    };
    begin();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(popover()); // it has no name
    QTest::keyClick(panel.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(popover());
    EXPECT_EQ(engine().registry().groupsArray().size(), 1U);
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Tab);
    EXPECT_EQ(focused(), next);

    begin();
    const QString family = QString::fromUtf8("\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7");
    popover()->findChild<QLineEdit*>()->insert("Twenty-two bytes long.");
    popover()->findChild<QLineEdit*>()->insert(family); // one character, one byte too many
    EXPECT_TRUE(popoverShows<QLabel>("1 lamp"));
    control("All off")->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(popover());
    control("Lamp 4, selected")->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(popover());
    EXPECT_TRUE(engine().registry().IDForGroupNamed("Twenty-two bytes long."));

    controller->workflows().editGroupStep1("Den");
    EXPECT_EQ(focused(), "Lamp 1, selected");
    EXPECT_FALSE(popover()->findChild<QLineEdit*>());
    QTest::keyClick(panel.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(popoverShows<QLabel>("1 lamp, 1 leaves"));
    QTest::keyClick(&panel, Qt::Key_Escape);
}

TEST_F(PanelWindow, aWorkflowPopoverLeavesTheStripsInReach)
{
    auto* area = panel.findChild<QScrollArea*>();
    const int before = area->height();
    controller->workflows().makeLocationStep1();
    EXPECT_LT(area->height(), before); // at once
    controller->panelSetUp().navigation().goBack();
    EXPECT_EQ(area->height(), before);
    controller->workflows().makeLocationStep1();
    panel.setMinimumSize(0, 0);
    for (const int width : {1000, 600, 300}) {
        panel.setMaximumSize(width, 400);
        panel.resize(width, 400);
        QCoreApplication::processEvents();
        ASSERT_EQ(panel.width(), width);
        const QRect bar = popover()->geometry();
        EXPECT_GE(bar.top(), area->geometry().bottom());
        EXPECT_LT(bar.bottom(), panel.centralWidget()->height());
        for (const auto* part : popover()->findChildren<QWidget*>()) {
            EXPECT_TRUE(popover()->rect().contains(part->geometry())) << width;
            EXPECT_GE(part->width(), std::min(part->minimumSizeHint().width(), 150)) << width;
        }
        EXPECT_GE(area->verticalScrollBar()->maximum() + area->viewport()->height(),
            area->widget()->height());
        EXPECT_EQ(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
        panel.reveal(*controller->collection().front()->getControlStripView());
        EXPECT_EQ(area->horizontalScrollBar()->value(), 0); // where the check box is
    }
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
