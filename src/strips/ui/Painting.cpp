#include "strips/ui/Painting.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QWidget>

namespace lumeroom {

QColor qColor(const Rgba& rgba)
{
    return QColor::fromRgbF(rgba.red, rgba.green, rgba.blue, rgba.alpha);
}

QRectF qRect(const Rectangle& rectangle)
{
    return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
}

Rectangle rectangleFrom(const QRectF& rect)
{
    return {static_cast<float>(rect.x()), static_cast<float>(rect.y()),
        static_cast<float>(rect.width()), static_cast<float>(rect.height())};
}

bool isDark(const QWidget& widget)
{
    constexpr int kMiddleGrey = 128;
    return widget.palette().color(QPalette::Window).lightness() < kMiddleGrey;
}

void paintGlow(QPainter& painter, const QRectF& oval)
{
    constexpr float kFraction = 0.4F;
    QRadialGradient glow(oval.center() - QPointF(0, oval.height() * 0.25), oval.width() * 0.6);
    glow.setColorAt(0, QColor::fromRgbF(1, 1, 1, kFraction));
    glow.setColorAt(1, QColor::fromRgbF(1, 1, 1, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(oval);
}

void paintSliderBar(QPainter& painter, const SliderBar& bar)
{
    const QRectF rect = qRect(bar.rectangle);
    const bool upright = bar.degrees != 0;
    QLinearGradient gradient(
        upright ? rect.bottomLeft() : rect.topLeft(), upright ? rect.topLeft() : rect.topRight());
    for (std::size_t i = 0; i < bar.colours.size(); ++i) {
        const double place = static_cast<double>(i) / static_cast<double>(bar.colours.size() - 1);
        gradient.setColorAt(place, qColor(bar.colours[i]));
    }
    painter.save();
    painter.setOpacity(painter.opacity() * bar.alpha);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(rect, bar.cornerRadius, bar.cornerRadius);
    painter.restore();
}

} // namespace lumeroom
