#include "strips/ui/ColourSwatch.h"

#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QPainter>

#include <cmath>

namespace lumeroom {

namespace {
constexpr int kSize = 30;
}

ColourSwatch::ColourSwatch(ColourWellModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("colour"));
    followModel(m_model, this, &ColourSwatch::mirror);
}

void ColourSwatch::mirror()
{
    mirrorControl(*this, m_model);
    const Colour& colour = m_model.colour();
    setAccessibleDescription(tr("hue %1 degrees, saturation %2 percent")
                                 .arg(std::lround(colour.hue * 360))
                                 .arg(std::lround(colour.saturation * 100)));
    update();
}

QSize ColourSwatch::sizeHint() const
{
    return {kSize, kSize};
}

void ColourSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF oval = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0.9F, 0.9F, 0.9F));
    painter.drawEllipse(oval);
    painter.setBrush(qColor(swatchFill(m_model.colour())));
    painter.drawEllipse(oval);

    QRadialGradient glow(oval.center() - QPointF(0, oval.height() * 0.25), oval.width() * 0.6);
    glow.setColorAt(0, QColor(255, 255, 255, 100));
    glow.setColorAt(1, QColor(255, 255, 255, 0));
    painter.setBrush(glow);
    painter.drawEllipse(oval);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgbF(0.75F, 0.75F, 0.75F), height() / 40.0));
    painter.drawEllipse(oval);
}

} // namespace lumeroom
