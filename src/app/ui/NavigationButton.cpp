#include "app/ui/NavigationButton.h"

#include "strips/ui/FocusRing.h"
#include "strips/ui/Painting.h"

#include <QPainter>

namespace lumeroom {

namespace {

constexpr int kHeight = 34;
constexpr int kIcon = 18;

} // namespace

NavigationButton::NavigationButton(const QString& text, Icon icon, QWidget* parent)
    : QAbstractButton(parent)
    , m_icon(icon)
{
    setText(text);
    setAccessibleName(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize NavigationButton::sizeHint() const
{
    return {2 * kMargin + kIcon + kMargin + fontMetrics().horizontalAdvance(text()), kHeight};
}

void NavigationButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ground = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    paintGround(painter, ground);
    if (isDown() || underMouse()) {
        QColor veil(isDark(*this) ? Qt::white : Qt::black);
        veil.setAlphaF(isDown() ? 0.15F : 0.05F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(veil);
        painter.drawRoundedRect(ground, kRadius, kRadius);
    }
    if (showsFocusRing(*this)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(ground, kRadius, kRadius);
    }
    paintContent(painter);
}

void NavigationButton::paintContent(QPainter& painter) const
{
    const QRect picture(kMargin, (height() - kIcon) / 2, kIcon, kIcon);
    lumeroom::icon(m_icon, palette()).paint(&painter, picture);
    paintText(painter, rect().adjusted(picture.right() + kMargin, 0, -4, 0));
}

void NavigationButton::paintText(QPainter& painter, const QRect& room) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
        painter.fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

} // namespace lumeroom
