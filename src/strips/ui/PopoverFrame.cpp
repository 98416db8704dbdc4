#include "strips/ui/PopoverFrame.h"

#include "strips/ui/CardLook.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>

namespace lumeroom {

namespace {

constexpr double kRadius = 10;

QPainterPath outlineOf(const QRectF& rect)
{
    QPainterPath outline;
    outline.addRoundedRect(rect, kRadius, kRadius);
    return outline;
}

} // namespace

PopoverFrame::PopoverFrame(QWidget* parent, Qt::WindowFlags flags)
    : QFrame(parent, flags)
{
    if (isWindow())
        setAttribute(Qt::WA_TranslucentBackground);
}

void PopoverFrame::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && isWindow())
        close();
    else
        QFrame::keyPressEvent(event);
}

void PopoverFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.3F);
    painter.fillPath(outlineOf(contentsRect()), cardGround(*this));
    painter.setPen(line);
    painter.drawPath(outlineOf(QRectF(contentsRect()).adjusted(0.5, 0.5, -0.5, -0.5)));
}

/// Where no compositor lets the desktop through, what is outside of the corners would be black.
void PopoverFrame::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    if (isWindow())
        setMask(QRegion(outlineOf(rect()).toFillPolygon().toPolygon()));
}

} // namespace lumeroom
