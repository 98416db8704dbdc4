#include "desktop/TrayImage.h"

#include <QPainter>
#include <QPainterPath>

namespace lumeroom {

namespace {

const QColor kEdge(48, 48, 52);
const QColor kBody(244, 244, 246);

/// In a square of 18 by 18.
constexpr double kSide = 18;

QPainterPath bulb()
{
    QPainterPath path(QPointF(6.5, 12.5));
    path.cubicTo(6.5, 10.2, 3.8, 9.6, 3.8, 6.2);
    path.cubicTo(3.8, 3.2, 6.1, 1.2, 9, 1.2);
    path.cubicTo(11.9, 1.2, 14.2, 3.2, 14.2, 6.2);
    path.cubicTo(14.2, 9.6, 11.5, 10.2, 11.5, 12.5);
    path.closeSubpath();
    return path;
}

QPixmap draw(int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / kSide, side / kSide);
    painter.setPen(QPen(kEdge, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(kBody);
    painter.drawPath(bulb());
    painter.drawRoundedRect(QRectF(6.5, 12.5, 5, 4.2), 1.4, 1.4);
    painter.drawLine(QPointF(6.5, 14.6), QPointF(11.5, 14.6));
    return pixmap;
}

} // namespace

QIcon trayImage()
{
    QIcon icon;
    for (const int side : {16, 18, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(draw(side));
    return icon;
}

} // namespace lumeroom
