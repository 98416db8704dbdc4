#pragma once

#include <QPoint>
#include <QTimer>

#include <functional>

class QScrollArea;
class QWidget;

namespace lumeroom {

/// The nearest scroll area that the widget is in; null for none.
QScrollArea* areaAround(const QWidget& widget);

/// Scrolls the scroll area around a widget while the user drags near the area's edge.
class EdgeScroller {
public:
    /// `scrolled` is called after each step, for what is dragged to stay under the mouse.
    EdgeScroller(QWidget& widget, std::function<void(QPoint globalMouse)> scrolled);

    /// Of each movement of the drag.
    void mouseIsAt(QPoint globalMouse);
    void stop() { m_timer.stop(); }

private:
    void step();

    QWidget& m_widget;
    std::function<void(QPoint)> m_scrolled;
    QPoint m_mouse;
    QTimer m_timer;
};

} // namespace lumeroom
