#pragma once

#include "strips/ui/EdgeScroller.h"

class QMouseEvent;

namespace lumeroom {

class DragHandle;
class LampControlStrip;

/// The user's hand on a row: it takes the row by its handle and moves it in its container, while
/// the strip tells its owner.
class StripDrag {
public:
    StripDrag(LampControlStrip& strip, QWidget& row, DragHandle& handle);

    bool isOn() const { return m_isBeingDragged; }
    void mouseDown(const QMouseEvent& event);
    void mouseDragged(const QMouseEvent& event);
    void mouseUp(const QMouseEvent& event);
    /// Lets go of the row, and tells nobody.
    void abandon();

private:
    void follow(QPoint mouseInContainer);

    LampControlStrip& m_strip;
    QWidget& m_row;
    DragHandle& m_handle;
    EdgeScroller m_scroller;
    bool m_pressed = false; ///< on the handle
    bool m_isBeingDragged = false;
    QPoint m_lastDragLocation; ///< in the container
};

} // namespace lumeroom
