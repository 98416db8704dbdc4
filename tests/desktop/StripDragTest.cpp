#include "desktop/StripRows.h"
#include "support/QtTestInput.h"

namespace lumeroom::test {

using Calls = std::vector<std::string>;

struct StripDragging : StripRows {
    /// Rows one below the other.
    void makeColumn(int count)
    {
        for (int i = 0; i < count; ++i) {
            ControlStripView& row = rowOf(addStrip("Lamp", theme::kThinControl));
            row.setOrigin({0, row.size().height * static_cast<float>(i)}, true);
        }
        container.resize(row(0).width(), row(0).height() * count);
        container.show();
        QCoreApplication::processEvents();
    }
    ControlStripView& row(std::size_t index) { return rowOf(*strips.at(index)); }
    QWidget& handle(std::size_t index) { return *tagged(row(index), controltag::kDragHandle); }
};

TEST_F(StripDragging, theHandleMovesTheRowWithTheMouse)
{
    makeColumn(3);
    QWidget& label = *tagged(row(0), controltag::kLabel);
    mouseAt(label, QEvent::MouseButtonPress, {5, 5}); // nothing else does
    mouseAt(label, QEvent::MouseMove, label.mapFrom(&row(0), handle(0).geometry().center()));
    mouseAt(label, QEvent::MouseButtonRelease, {5, 60});
    QWidget& grip = handle(0);
    const QPointF middle = QRectF(grip.rect()).center();
    mouseAt(grip, QEvent::MouseButtonPress, middle);
    mouseAt(grip, QEvent::MouseButtonRelease, middle); // a click is no drag
    EXPECT_TRUE(owner.takeCalls().empty());

    mouseAt(grip, QEvent::MouseButtonPress, middle);
    mouseAt(grip, QEvent::MouseMove, middle + QPointF(3, 5));
    EXPECT_TRUE(row(0).isBeingDragged());
    mouseAt(grip, QEvent::MouseMove, middle + QPointF(0, 40)); // the row has moved under it
    EXPECT_EQ(row(0).pos(), QPoint(3, 45));
    EXPECT_EQ(owner.takeCalls(), (Calls{"begin", "move 1", "move 1"}));
    const QPoint mouseInContainer = grip.mapTo(&container, middle.toPoint());
    EXPECT_EQ(owner.points.back().y, static_cast<float>(mouseInContainer.y()));
    EXPECT_EQ(container.childAt(mouseInContainer)->parentWidget(), &row(0)); // in front
    mouseAt(grip, QEvent::MouseButtonRelease, middle);
    EXPECT_FALSE(row(0).isBeingDragged());
    EXPECT_EQ(owner.takeCalls(), (Calls{"finish"}));
}

TEST_F(StripDragging, aRowThatGoesOutOfSightIsLetGo)
{
    makeColumn(2);
    mouseAt(handle(0), QEvent::MouseButtonPress, {5, 5});
    mouseAt(handle(0), QEvent::MouseMove, {5, 20});
    row(0).setShown(false);
    EXPECT_FALSE(row(0).isBeingDragged());
    mouseAt(handle(0), QEvent::MouseButtonRelease, {5, 20});
    EXPECT_EQ(owner.takeCalls(), (Calls{"begin", "move 1"}));
    QCoreApplication::processEvents(); // the order so far is the new order
    EXPECT_EQ(owner.takeCalls(), (Calls{"finish"}));

    // With the window, and the strip gone before its turn comes.
    mouseAt(handle(1), QEvent::MouseButtonPress, {5, 5});
    mouseAt(handle(1), QEvent::MouseMove, {5, 20});
    container.hide();
    EXPECT_FALSE(row(1).isBeingDragged());
    strips.clear();
    QCoreApplication::processEvents();
    EXPECT_EQ(owner.takeCalls(), (Calls{"begin", "move 2"}));
}

TEST_F(StripDragging, arrowKeysTradePlacesWithTheNeighbour)
{
    makeColumn(3);
    const auto [width, height] = row(0).size();
    const struct {
        std::size_t row;
        Qt::Key key;
        Point point; ///< of the neighbour; none: it stays
    } cases[] = {{1, Qt::Key_Down, {width / 2, height * 5 / 2}},
        {1, Qt::Key_Up, {width / 2, height / 2}}, {0, Qt::Key_Up, {}}, {2, Qt::Key_Down, {}}};
    for (const auto& c : cases) {
        owner.points = {{}};
        key(handle(c.row), c.key);
        EXPECT_EQ(owner.points.back(), c.point) << c.row << " key " << c.key;
    }
    EXPECT_EQ(owner.takeCalls(), (Calls{"begin", "move 2", "finish", "begin", "move 2", "finish"}));
    // In a grid, up and down mean the row above and below.
    row(0).setOrigin({0, 0}, false);
    row(1).setOrigin({width, 0}, false);
    row(2).setOrigin({0, height}, false);
    key(handle(0), Qt::Key_Down);
    EXPECT_EQ(owner.points.back(), (Point{width / 2, height * 3 / 2}));
    key(handle(0), Qt::Key_Right);
    EXPECT_EQ(owner.points.back(), (Point{width * 3 / 2, height / 2}));
}

} // namespace lumeroom::test
