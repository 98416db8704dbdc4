#include "desktop/StripRows.h"
#include "strips/ui/SliderView.h"
#include "support/QtTestInput.h"

#include <QMenu>

namespace lumeroom::test {

namespace ct = controltag;

namespace {

const std::vector<int> kTags{ct::kLabel, ct::kOnOffButton, ct::kBrightnessSlider, ct::kColourSlider,
    ct::kSaturationSlider, ct::kRenameButton, ct::kKindBadge, ct::kEffectButton,
    ct::kSelectionButton, ct::kWarmthSlider, ct::kDragHandle, ct::kNavigationButton};

/// The one control without a tag.
const QWidget* wellOf(const ControlStripView& row)
{
    for (const auto* child : row.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!child->property("tag").isValid())
            return child;
    }
    return nullptr;
}

} // namespace

TEST_F(StripRows, everyLayoutHasRoomForEveryControl)
{
    for (int theme = 0; theme < theme::kCount; ++theme) {
        LampControlStrip& strip = addStrip("Desk lamp with a long name", theme);
        strip.showSelectedButton(true);
        strip.kindBadge().setImage(BadgeModel::Image::LightStrip);
        strip.kindBadge().setHidden(false);
        strip.navigationButton().setHidden(false);
        container.show();
        ControlStripView& row = rowOf(strip);
        row.setShown(true);
        QCoreApplication::processEvents();
        std::vector<const QWidget*> seen;
        for (const int tag : kTags) {
            const QWidget* control = tagged(row, tag);
            ASSERT_TRUE(control) << "theme " << theme << " tag " << tag;
            EXPECT_TRUE(control->isVisible()) << theme << " tag " << tag;
            seen.push_back(control);
        }
        seen.push_back(wellOf(row));
        ASSERT_TRUE(seen.back());
        for (std::size_t i = 0; i < seen.size(); ++i) {
            EXPECT_TRUE(row.rect().contains(seen[i]->geometry())) << theme << " control " << i;
            EXPECT_GE(seen[i]->width(), 14) << theme << " control " << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(seen[i]->geometry().intersects(seen[j]->geometry()))
                    << theme << " controls " << i << " and " << j;
        }
        const bool upright = theme == theme::kSingleControl;
        const QWidget* slider = tagged(row, ct::kWarmthSlider);
        EXPECT_EQ(slider->height() > slider->width(), upright) << theme;
        EXPECT_GE(std::max(slider->height(), slider->width()), 80) << theme;
    }
}

TEST_F(StripRows, anUprightSliderFollowsTheHandTheKeysAndReports)
{
    LampControlStrip& strip = addStrip("Desk", theme::kSingleControl);
    container.show();
    QCoreApplication::processEvents();
    auto* slider = qobject_cast<SliderView*>(tagged(rowOf(strip), ct::kBrightnessSlider));
    const double centre = slider->width() / 2.0;
    mouseAt(*slider, QEvent::MouseButtonPress, {centre, slider->height() / 2.0});
    EXPECT_NEAR(slider->value(), 128, 3);
    mouseAt(*slider, QEvent::MouseMove, {centre, 0});
    EXPECT_EQ(strip.brightnessSlider().value(), 255);
    mouseAt(*slider, QEvent::MouseButtonRelease, {centre, slider->height() + 10.0});
    EXPECT_EQ(strip.brightnessSlider().value(), 0);
    key(*slider, Qt::Key_Up);
    EXPECT_EQ(strip.brightnessSlider().value(), 5);
    EXPECT_EQ(slider->accessibleDescription(), "2 percent");

    // To touch the knob does nothing; it goes with the hand from where it was.
    strip.brightnessSlider().setValue(128);
    loop.advance(Seconds(1));
    mouseAt(*slider, QEvent::MouseButtonPress, {centre, slider->height() / 2.0 - 5});
    EXPECT_EQ(strip.brightnessSlider().value(), 128);
    EXPECT_FALSE(strip.hasPendingAction()); // nor is anything sent
    mouseAt(*slider, QEvent::MouseMove, {centre, slider->height() / 2.0});
    EXPECT_NEAR(slider->value(), 128 - 5 * 255.0 / (slider->height() - 18), 1.5);
    mouseAt(*slider, QEvent::MouseMove, {centre, slider->height() / 2.0 - 5});
    EXPECT_EQ(slider->value(), 128);
    strip.brightnessSlider().setValue(40); // by a report: the knob stays in the hand
    EXPECT_EQ(slider->value(), 128);
    mouseAt(*slider, QEvent::MouseButtonRelease, {centre, slider->height() / 2.0 - 5});
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
