#include "strips/ui/StripDrag.h"

#include "strips/LampControlStrip.h"
#include "strips/ui/DragHandle.h"

#include <QMouseEvent>

namespace lumeroom {

StripDrag::StripDrag(LampControlStrip& strip, QWidget& row, DragHandle& handle)
    : m_strip(strip)
    , m_row(row)
    , m_handle(handle)
    , m_scroller(row, [this](QPoint mouse) { follow(m_row.parentWidget()->mapFromGlobal(mouse)); })
{
}

void StripDrag::mouseDown(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || !m_row.parentWidget())
        return;
    m_pressed = m_handle.geometry().contains(event.position().toPoint());
    m_lastDragLocation = m_row.mapToParent(event.position().toPoint());
}

void StripDrag::mouseDragged(const QMouseEvent& event)
{
    if (!m_pressed)
        return;
    if (!m_isBeingDragged) {
        m_strip.viewDidBeginDragging();
        m_isBeingDragged = true;
        m_handle.showHeld(true);
        m_row.raise();
        m_row.update();
    }
    follow(m_row.mapToParent(event.position().toPoint()));
    m_scroller.mouseIsAt(event.globalPosition().toPoint());
}

void StripDrag::follow(QPoint mouseInContainer)
{
    m_row.move(m_row.pos() + mouseInContainer - m_lastDragLocation);
    m_lastDragLocation = mouseInContainer;
    m_strip.viewDidMoveTo(
        {static_cast<float>(mouseInContainer.x()), static_cast<float>(mouseInContainer.y())});
}

void StripDrag::mouseUp(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    const bool wasDragged = m_isBeingDragged;
    abandon();
    if (wasDragged)
        m_strip.viewDidFinishDragging();
}

void StripDrag::abandon()
{
    m_pressed = false;
    m_isBeingDragged = false;
    m_scroller.stop();
    m_handle.showHeld(false);
    m_row.update();
}

} // namespace lumeroom
