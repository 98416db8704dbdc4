#include "strips/ui/ValueBubble.h"

#include <QPainter>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kGap = 4;
constexpr QSize kPadding{10, 3};
constexpr double kLarger = 1.35;
constexpr int kRadius = 8;

} // namespace

ValueBubble::ValueBubble(QWidget& slider)
    : QWidget(slider.window())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont large = slider.font();
    large.setPointSizeF(large.pointSizeF() * kLarger);
    large.setWeight(QFont::DemiBold);
    setFont(large);
}

void ValueBubble::showAt(
    QPoint knobInWindow, int knobRadius, Qt::Orientation slider, const QString& text)
{
    m_text = text;
    const QSize size(fontMetrics().horizontalAdvance(text) + 2 * kPadding.width(),
        fontMetrics().height() + 2 * kPadding.height());
    const int away = knobRadius + kGap;
    QPoint place = slider == Qt::Horizontal
        ? QPoint(knobInWindow.x() - size.width() / 2, knobInWindow.y() - away - size.height())
        : QPoint(knobInWindow.x() + away, knobInWindow.y() - size.height() / 2);
    const QSize room = parentWidget()->size() - size;
    place.setX(std::clamp(place.x(), 0, std::max(0, room.width())));
    place.setY(std::clamp(place.y(), 0, std::max(0, room.height())));
    setGeometry(QRect(place, size));
    show();
    raise();
    update();
}

void ValueBubble::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::WindowText));
    painter.drawRoundedRect(rect(), kRadius, kRadius);
    painter.setPen(palette().color(QPalette::Window));
    painter.drawText(rect(), Qt::AlignCenter, m_text);
}

} // namespace lumeroom
