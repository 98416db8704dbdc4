#include "strips/ui/OnOffButtonView.h"

#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QPainter>

namespace lumeroom {

namespace {

constexpr int kSize = 40;

/// The sign for power: an open ring with a stroke from its top.
void paintPowerSign(QPainter& painter, const QRectF& oval, const QColor& colour)
{
    const double radius = oval.width() * 0.24;
    const QPointF centre = oval.center();
    const QRectF ring(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, oval.width() * 0.075, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, 125 * 16, 290 * 16);
    painter.drawLine(centre - QPointF(0, radius * 0.15), centre - QPointF(0, radius * 1.2));
}

} // namespace

OnOffButtonView::OnOffButtonView(ButtonModel& model, const ColourWellModel& well, QWidget* parent)
    : QAbstractButton(parent)
    , m_model(model)
    , m_well(well)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("power"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] { m_model.press(); });
    followModel(m_model, this, &OnOffButtonView::mirror);
}

void OnOffButtonView::mirror()
{
    mirrorControl(*this, m_model);
    setChecked(m_model.state());
    setAccessibleDescription(m_model.state() ? tr("on") : tr("off"));
    if (m_model.toolTip().empty())
        setToolTip(m_model.state() ? tr("Switch off") : tr("Switch on"));
    update();
}

QSize OnOffButtonView::sizeHint() const
{
    return {kSize, kSize};
}

void OnOffButtonView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const bool dark = isDark(*this);
    const OnOffButtonPaint paint = onOffButtonPaint(
        rectangleFrom(QRectF(rect())), {m_model.state(), isDown(), dark, m_well.colour()});
    const QRectF oval = qRect(paint.oval);
    painter.setPen(Qt::NoPen);
    for (const Rgba& fill : paint.fills) {
        painter.setBrush(qColor(fill));
        painter.drawEllipse(oval);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(qColor(paint.outline), paint.outlineWidth));
    painter.drawEllipse(oval);
    paintGlow(painter, oval);
    const bool on = m_model.state();
    paintPowerSign(painter, oval, on ? QColor(60, 60, 66) : QColor(Qt::white));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(oval.adjusted(-3, -3, 3, 3));
    }
}

} // namespace lumeroom
