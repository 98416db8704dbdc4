#include "strips/ui/CardLook.h"

#include "strips/ui/Painting.h"

#include <QPainter>
#include <QPalette>
#include <QWidget>

namespace lumeroom {

namespace {

QColor faded(QColor colour, float alpha)
{
    colour.setAlphaF(alpha);
    return colour;
}

/// Some dark desktops have lighter fields on a darker ground, others the reverse.
QColor darkShade(const QWidget& widget, bool lighter)
{
    const QColor window = widget.palette().color(QPalette::Window);
    const QColor base = widget.palette().color(QPalette::Base);
    const bool windowIsLighter = window.lightness() > base.lightness();
    return windowIsLighter == lighter ? window : base;
}

} // namespace

void makeCard(QWidget& row, QSize size, int below)
{
    row.setContentsMargins(kCardMargin, kCardMargin, kCardMargin, kCardMargin + below);
    row.resize(size);
    row.setFixedHeight(size.height());
}

QColor panelGround(const QWidget& widget)
{
    constexpr float kLightGround = 0.91F;
    return isDark(widget) ? darkShade(widget, false)
                          : QColor::fromRgbF(kLightGround, kLightGround, kLightGround);
}

QColor cardGround(const QWidget& widget)
{
    return isDark(widget) ? darkShade(widget, true) : widget.palette().color(QPalette::Base);
}

QColor softText(const QWidget& widget)
{
    return faded(widget.palette().color(QPalette::WindowText), 0.66F);
}

QColor warningText(const QWidget& widget)
{
    return isDark(widget) ? QColor(0xF0, 0xA0, 0x60) : QColor(0xB3, 0x54, 0x1E);
}

void paintCard(QPainter& painter, const QWidget& row, int radius, bool accented)
{
    painter.fillRect(row.rect(), panelGround(row));
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = accented ? row.palette().color(QPalette::Highlight)
                                 : faded(row.palette().color(QPalette::WindowText), 0.12F);
    const double width = accented ? 2 : 1;
    const double edge = width / 2;
    painter.setPen(QPen(line, width));
    painter.setBrush(cardGround(row));
    painter.drawRoundedRect(
        QRectF(row.contentsRect()).adjusted(edge, edge, -edge, -edge), radius, radius);
}

double prominenceOf(StripState state)
{
    switch (state) {
    case StripState::On:
        return 1;
    case StripState::Off:
        return 0.45;
    case StripState::NotAnswering:
    case StripState::Waiting:
        break;
    }
    return 0.3;
}

} // namespace lumeroom
