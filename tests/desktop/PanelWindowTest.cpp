#include "ResizeFromOutside.h"
#include "app/ManualController.h"
#include "app/ui/ControlPanelWindow.h"
#include "app/ui/WorkflowPopoverView.h"
#include "strips/ui/SliderView.h"
#include "support/EngineHarness.h"
#include "support/QtTestInput.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace lumeroom {

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
    test::resizeFromOutside(panel, {960, 400});
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

} // namespace lumeroom
