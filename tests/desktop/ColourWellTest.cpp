#include "base/Log.h"
#include "base/UserDefaults.h"
#include "strips/ColourArchive.h"
#include "strips/ui/CircularSliderView.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ColourWellDrag.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/SliderView.h"
#include "support/ManualRunLoop.h"
#include "support/QtTestInput.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>

#include <gtest/gtest.h>

namespace lumeroom {

using test::key;
using test::mouse;
using test::mouseAt;

namespace {

/// Notes the start of a drag in place of waiting for its end.
class Well : public ColourWellView {
public:
    using ColourWellView::ColourWellView;
    int drags = 0;

protected:
    void startDrag(QPoint) override { ++drags; }
};

struct Paints : QObject {
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// Whether the widget took it.
bool wheel(QWidget& widget, QPoint pixels, QPoint angle)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), pixels, angle, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

} // namespace

struct ColourWell : ::testing::Test, ControlTarget {
    ColourWell()
    {
        model.setFilteredTarget(this);
        window.resize(300, 200);
        well->setGeometry(20, 20, 30, 30);
        window.show();
    }
    void handleControl(const ControlModel&) override { ++handled; }
    void unfilteredAction(const ControlModel&) override { }
    void click()
    {
        mouse(*well, QEvent::MouseButtonPress, 15);
        mouse(*well, QEvent::MouseButtonRelease, 15);
    }
    /// Whether the well takes what is dragged over it and let go there.
    bool drop(const QMimeData& data, Qt::DropActions actions = Qt::CopyAction)
    {
        QDragEnterEvent enter(QPoint(15, 15), actions, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(well, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(15, 15), actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(well, &event);
        return event.isAccepted();
    }

    ManualRunLoop loop;
    UserDefaults defaults;
    Log log{[](std::string_view) {}};
    int handled = 0;
    ColourWellModel model{loop, defaults, log};
    ColourPickerPopover popover;
    QWidget window;
    Well* well = new Well(model, popover, &window);
};

TEST_F(ColourWell, aClickOrAKeyOpensThePopoverOnTheScreen)
{
    const QRect screen = window.screen()->availableGeometry();
    for (const QPoint corner :
        {screen.topLeft(), QPoint(screen.right() - 60, screen.top()), screen.bottomRight()}) {
        window.move(corner);
        click();
        ASSERT_TRUE(popover.isVisible());
        EXPECT_TRUE(screen.contains(popover.geometry()));
        EXPECT_FALSE(popover.geometry().intersects(
            QRect(well->mapToGlobal(QPoint(0, 0)), well->size()) & screen));
        key(popover, Qt::Key_Escape);
        EXPECT_FALSE(popover.isVisible());
    }
    key(*well, Qt::Key_Return);
    EXPECT_TRUE(popover.isVisible());
    popover.close();
}

TEST_F(ColourWell, picksInBothModes)
{
    model.setColour({0.5F, 1, 0.5F, 1, 4000});
    click();
    auto* circle = popover.findChild<CircularSliderView*>();
    ASSERT_TRUE(circle);
    EXPECT_EQ(circle->accessibleDescription(), "hue 180 degrees, saturation 100 percent");
    EXPECT_EQ(model.colour(), (Colour{0.5F, 1, 0.5F, 1, 4000}));
    mouseAt(*circle, QEvent::MouseButtonPress, {100, 56.75}); // upwards, half way out
    mouseAt(*circle, QEvent::MouseButtonRelease, {100, 56.75});
    EXPECT_NEAR(model.colour().hue, 0.25, 1e-3);
    EXPECT_NEAR(model.colour().saturation, 0.5, 1e-3);
    key(*circle, Qt::Key_Up);
    EXPECT_NEAR(model.colour().saturation, 0.55, 1e-3);

    auto* brightness = popover.findChild<SliderView*>();
    QCoreApplication::processEvents();
    Paints paints(*brightness);
    key(*circle, Qt::Key_Left);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 1); // its bar has the colour

    test::choose<QPushButton>("Whites");
    mouseAt(*circle, QEvent::MouseButtonPress, {13.5, 100});
    mouseAt(*circle, QEvent::MouseMove, {500, 100});
    mouseAt(*circle, QEvent::MouseButtonRelease, {500, 100});
    EXPECT_EQ(model.colour(), (Colour{0, 0, 0.5F, 1, 2500}));
    brightness->setValue(51);
    EXPECT_EQ(model.colour(), (Colour{0, 0, 0.2F, 1, 2500}));
    EXPECT_EQ(handled, 0);
    loop.advance(Seconds(0.1));
    EXPECT_EQ(handled, 1);
}

TEST_F(ColourWell, thePickerOutlivesNeitherWellNorWindow)
{
    click();
    auto keep = popover.picker();
    delete std::exchange(well, nullptr);
    EXPECT_FALSE(popover.isVisible());
    EXPECT_EQ(keep->delegate(), nullptr);

    auto other = std::make_unique<QWidget>();
    new ColourWellView(model, popover, other.get());
    other->show();
    model.showThePopover();
    EXPECT_EQ(keep->delegate(), &model);
    other.reset();
    EXPECT_FALSE(popover.isVisible());
    keep->moveBrightnessTo(0.5F);
}

TEST_F(ColourWell, theWheelAndTheArrowsDim)
{
    QApplication::setWheelScrollLines(3);
    const struct {
        QPoint pixels;
        QPoint angle;
        bool taken;
        float level; ///< at 2 of 255 per line
    } cases[] = {
        {{}, {0, 120}, true, 106},
        {{0, 5}, {0, 40}, true, 102},
        {{0, -20}, {}, true, 96},
        {{}, {120, 0}, false, 100},
    };
    EXPECT_FALSE(wheel(*well, {}, {0, 120})) << "before the mouse has been moved onto it";
    mouse(*well, QEvent::MouseMove, 14);
    for (const auto& c : cases) {
        model.setColour({0.3F, 1, 100.0F / 255, 1, 4000});
        EXPECT_EQ(wheel(*well, c.pixels, c.angle), c.taken);
        EXPECT_NEAR(model.colour().brightness * 255, c.level, 1e-3);
    }
    well->move(well->pos() + QPoint(0, 10)); // the panel has been scrolled under the mouse
    EXPECT_FALSE(wheel(*well, {}, {0, 120}));
    mouse(*well, QEvent::MouseMove, 14);
    QEvent leaves(QEvent::Leave);
    QCoreApplication::sendEvent(well, &leaves);
    EXPECT_FALSE(wheel(*well, {}, {0, 120}));
    key(*well, Qt::Key_Down);
    EXPECT_NEAR(model.colour().brightness * 255, 92, 1e-3);
}

TEST_F(ColourWell, aDragIsNoClickAndCarriesTheColour)
{
    model.setColour({0.5F, 1, 0.5F, 1, {}});
    mouse(*well, QEvent::MouseButtonPress, 15);
    mouse(*well, QEvent::MouseMove, 28);
    mouse(*well, QEvent::MouseMove, 29);
    mouse(*well, QEvent::MouseButtonRelease, 29);
    EXPECT_EQ(well->drags, 1);
    EXPECT_FALSE(popover.isVisible());

    const QColor amber = colourDragPicture({0, 0, 0.5F, 1, 2500}, 1).toImage().pixelColor(0, 0);
    EXPECT_EQ(amber.red(), 128);
    EXPECT_LT(amber.blue(), 64);

    const std::unique_ptr<QMimeData> dragged(makeColourDragData(model));
    model.setColour({});
    EXPECT_TRUE(drop(*dragged));
    EXPECT_EQ(model.colour(), (Colour{0.5F, 1, 0.5F, 1, 3500}));
    EXPECT_EQ(handled, 1);
    EXPECT_FALSE(drop(*dragged, Qt::MoveAction | Qt::LinkAction));
}

TEST_F(ColourWell, takesNothingButColours)
{
    QMimeData text;
    text.setText("abc");
    EXPECT_FALSE(drop(text));
    QMimeData unreadable; // with the right type: it is solid red then
    unreadable.setData(kArchivedColourType, "abc");
    EXPECT_TRUE(drop(unreadable));
    EXPECT_EQ(model.colour(), (Colour{1, 1, 1, 1, {}}));
    EXPECT_EQ(handled, 1);
    QMimeData colour;
    colour.setColorData(QColor(0, 0, 255, 128));
    EXPECT_TRUE(drop(colour));
    EXPECT_NEAR(model.colour().hue, 2.0 / 3, 1e-4);
}

} // namespace lumeroom
