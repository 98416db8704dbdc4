#include "desktop/StripRows.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/SliderView.h"
#include "strips/ui/ValueBubble.h"
#include "strips/ui/WellAndRing.h"
#include "support/QtTestInput.h"

#include <QMenu>

namespace lumeroom::test {

namespace ct = controltag;

namespace {

const std::vector<int> kTags{ct::kLabel, ct::kOnOffButton, ct::kBrightnessSlider, ct::kColourSlider,
    ct::kSaturationSlider, ct::kRenameButton, ct::kKindBadge, ct::kEffectButton, ct::kWarmthSlider,
    ct::kDragHandle, ct::kNavigationButton};

/// In the coordinates of the row.
QRect placeIn(const ControlStripView& row, const QWidget& control)
{
    return {control.mapTo(&row, QPoint()), control.size()};
}

} // namespace

TEST_F(StripRows, everyLayoutHasRoomForEveryControl)
{
    for (int theme = 0; theme < theme::kCount; ++theme) {
        LampControlStrip& strip = addStrip("Desk lamp with a long name", theme);
        container.show();
        ControlStripView& row = rowOf(strip);
        row.setShown(true);
        QCoreApplication::processEvents();
        const QRect before = placeIn(row, *tagged(row, ct::kBrightnessSlider));
        strip.kindBadge().setImage(BadgeModel::Image::LightStrip);
        strip.kindBadge().setHidden(false);
        strip.navigationButton().setHidden(false);
        QCoreApplication::processEvents();
        EXPECT_EQ(placeIn(row, *tagged(row, ct::kBrightnessSlider)), before) << theme;
        std::vector<const QWidget*> seen;
        for (const int tag : kTags) {
            const QWidget* control = tagged(row, tag);
            ASSERT_TRUE(control) << "theme " << theme << " tag " << tag;
            EXPECT_TRUE(control->isVisible()) << theme << " tag " << tag;
            seen.push_back(control);
        }
        seen.push_back(row.findChild<ColourWellView*>());
        ASSERT_TRUE(seen.back());
        for (std::size_t i = 0; i < seen.size(); ++i) {
            const QRect place = placeIn(row, *seen[i]);
            EXPECT_TRUE(row.contentsRect().contains(place)) << theme << " control " << i;
            EXPECT_GE(seen[i]->width(), 14) << theme << " control " << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(place.intersects(placeIn(row, *seen[j])))
                    << theme << " controls " << i << " and " << j;
        }
        if (theme == theme::kHorizontalControl || theme == theme::kThinControl) {
            for (const int tag : {ct::kOnOffButton, ct::kColourSlider, ct::kNavigationButton})
                EXPECT_EQ(tagged(row, tag)->geometry().center().y(), before.center().y());
        }
        const bool upright = theme == theme::kSingleControl;
        const QWidget* slider = tagged(row, ct::kWarmthSlider);
        EXPECT_EQ(slider->height() > slider->width(), upright) << theme;
        EXPECT_GE(std::max(slider->height(), slider->width()), 80) << theme;
    }
}

TEST_F(StripRows, whileLampsArePickedTheWholeCardIsOneBox)
{
    LampControlStrip& strip = addStrip("Desk", theme::kThinControl);
    container.show();
    strip.showSelectedButton(true);
    QCoreApplication::processEvents();
    ControlStripView& row = rowOf(strip);
    EXPECT_TRUE(tagged(row, ct::kSelectionButton)->isVisible());
    EXPECT_FALSE(tagged(row, ct::kDragHandle)->isVisible());
    for (const int tag : {ct::kBrightnessSlider, ct::kOnOffButton, ct::kSelectionButton}) {
        const QPoint place = placeIn(row, *tagged(row, tag)).center();
        mouseAt(*row.childAt(place), QEvent::MouseButtonPress, place);
        EXPECT_EQ(strip.isSelected(), tag != ct::kOnOffButton);
        EXPECT_FALSE(strip.onOffButton().state());
    }
    strip.showSelectedButton(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(tagged(row, ct::kDragHandle)->isVisible());
    EXPECT_EQ(row.childAt(placeIn(row, *tagged(row, ct::kOnOffButton)).center()),
        tagged(row, ct::kOnOffButton));
}

TEST_F(StripRows, aColourThatIsNotSentHasARingThatSendsIt)
{
    LampControlStrip& strip = addStrip("Desk", theme::kSquareControl);
    container.show();
    QCoreApplication::processEvents();
    auto* ring = rowOf(strip).findChild<SendRing*>();
    EXPECT_FALSE(ring->isVisible());
    strip.sendButton().setHidden(false);
    EXPECT_TRUE(ring->isVisible());
    int sent = 0;
    strip.sendButton().setAction([&] { ++sent; });
    strip.colourSlider().setConfirmation([&] { return ++sent > 0; });
    key(*ring, Qt::Key_Return);
    mouseAt(*ring, QEvent::MouseButtonPress, {2, ring->height() / 2.0});
    mouseAt(*ring, QEvent::MouseButtonRelease, {2, ring->height() / 2.0});
    key(*tagged(rowOf(strip), ct::kColourSlider), Qt::Key_Return);
    EXPECT_EQ(sent, 3);
}

TEST_F(StripRows, anUprightSliderFollowsTheHandTheKeysAndReports)
{
    LampControlStrip& strip = addStrip("Desk", theme::kSingleControl);
    container.show();
    QCoreApplication::processEvents();
    auto* slider = qobject_cast<SliderView*>(tagged(rowOf(strip), ct::kBrightnessSlider));
    constexpr int kSign = 21; // under the bar
    const double centre = slider->width() / 2.0;
    const double middle = (slider->height() - kSign) / 2.0;
    const int length = slider->height() - kSign - 18;
    mouseAt(*slider, QEvent::MouseButtonPress, {centre, middle});
    EXPECT_NEAR(slider->value(), 128, 3);
    EXPECT_EQ(strip.caption().caption().text, "Brightness 50 %");
    EXPECT_TRUE(container.findChild<ValueBubble*>());
    EXPECT_TRUE(strip.brightnessSlider().stroke());
    mouseAt(*slider, QEvent::MouseMove, {centre, 0});
    EXPECT_EQ(strip.brightnessSlider().value(), 255);
    mouseAt(*slider, QEvent::MouseButtonRelease, {centre, slider->height() + 10.0});
    EXPECT_EQ(strip.brightnessSlider().value(), 0);
    EXPECT_EQ(strip.caption().caption().text, "Off");
    key(*slider, Qt::Key_Up);
    EXPECT_EQ(strip.brightnessSlider().value(), 5);
    key(*slider, Qt::Key_Down);
    key(*slider, Qt::Key_Up);
    EXPECT_FALSE(strip.brightnessSlider().stroke()); // its value shows, and yet no hand is on it
    EXPECT_EQ(strip.caption().caption().text, "Brightness 2 %");
    EXPECT_EQ(slider->accessibleDescription(), "2 %");

    // To touch the knob does nothing; it goes with the hand from where it was.
    strip.brightnessSlider().setValue(128);
    loop.advance(Seconds(1));
    mouseAt(*slider, QEvent::MouseButtonPress, {centre, middle - 5});
    EXPECT_EQ(strip.brightnessSlider().value(), 128);
    EXPECT_FALSE(strip.hasPendingAction()); // nor is anything sent
    mouseAt(*slider, QEvent::MouseMove, {centre, middle});
    EXPECT_NEAR(slider->value(), 128 - 5 * 255.0 / length, 1.5);
    mouseAt(*slider, QEvent::MouseMove, {centre, middle - 5});
    EXPECT_EQ(slider->value(), 128);
    strip.brightnessSlider().setValue(40); // by a report: the knob stays in the hand
    EXPECT_EQ(slider->value(), 128);
    mouseAt(*slider, QEvent::MouseButtonRelease, {centre, middle - 5});
    EXPECT_EQ(slider->value(), 40);
}

TEST_F(StripRows, aNewRowTakesTheStripOverAndANameShowsAsItStands)
{
    LampControlStrip& strip = addStrip("Lamp", theme::kHorizontalControl);
    strip.setControlStripView(
        std::make_unique<ControlStripView>(strip, theme::kSquareControl, picker, &container));
    container.show();
    QCoreApplication::processEvents();
    const std::string name = "<b>A lamp</b> & its very long name that no card has room for";
    strip.label().setText(name);
    strip.brightnessSlider().setValue(99);
    const ControlStripView& row = rowOf(strip);
    const QWidget& label = *tagged(row, ct::kLabel);
    EXPECT_EQ(label.accessibleName(), QString::fromStdString(name));
    EXPECT_TRUE(label.toolTip().contains("&lt;b&gt;A lamp&lt;/b&gt; &amp; its"));
    EXPECT_EQ(qobject_cast<SliderView*>(tagged(row, ct::kBrightnessSlider))->value(), 99);
}

TEST_F(StripRows, theEffectMenuActsOnceItIsGone)
{
    LampControlStrip& strip = addStrip("Lamp", theme::kHorizontalControl);
    container.show();
    ControlStripView& row = rowOf(strip);
    row.popUpEffectMenu({{EffectMenuItem::Kind::Effect, "Fire & ice"}, {},
        {EffectMenuItem::Kind::EditEffects, "Add / edit effects..."}});
    auto* menu = row.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions().at(0)->text(), "Fire && ice");
    menu->actions().at(0)->trigger();
    menu->actions().at(2)->trigger();
    EXPECT_TRUE(owner.takeCalls().empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(owner.takeCalls(), (std::vector<std::string>{"start Fire & ice", "effects"}));
}

} // namespace lumeroom::test
