#include "strips/ui/DragHandle.h"

#include "strips/ui/FocusRing.h"
#include "strips/ui/Icons.h"

#include <QKeyEvent>
#include <QPainter>

namespace lumeroom {

DragHandle::DragHandle(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(tr("position"));
    setAccessibleDescription(tr("use the arrow keys to move the strip"));
    setToolTip(tr("Drag to move"));
    showHeld(false);
}

void DragHandle::showHeld(bool held)
{
    setCursor(held ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

void DragHandle::paintEvent(QPaintEvent*)
{
    constexpr double kAtRest = 0.45;
    constexpr int kPicture = 20;
    QPainter painter(this);
    painter.setOpacity(underMouse() || showsFocusRing(*this) ? 1 : kAtRest);
    QRect room(0, 0, kPicture, kPicture);
    room.moveCenter(rect().center());
    icon(Icon::Handle, palette()).paint(&painter, room);
    if (showsFocusRing(*this)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
}

void DragHandle::keyPressEvent(QKeyEvent* event)
{
    const auto key = static_cast<Qt::Key>(event->key());
    const bool arrow
        = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
    if (arrow && (event->modifiers() & ~(Qt::AltModifier | Qt::KeypadModifier)) == 0)
        emit arrowPressed(key);
    else
        QWidget::keyPressEvent(event);
}

} // namespace lumeroom
