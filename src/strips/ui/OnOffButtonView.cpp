#include "strips/ui/OnOffButtonView.h"

#include "strips/ui/FocusRing.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QPainter>

namespace lumeroom {

namespace {

constexpr int kSize = 40;
constexpr double kDisabled = 0.25; // prominence
constexpr double kOff = 0.55;

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

/// Whichever reads better on the ground.
QColor signColour(const Rgba& ground)
{
    return isPale(ground) ? QColor(42, 42, 46) : QColor(Qt::white);
}

QColor signWhileOff(const QWidget& button)
{
    return button.palette().color(QPalette::WindowText);
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

/// What the lamp sheds on what is round it, the stronger the brighter it is.
void OnOffButtonView::paintShine(QPainter& painter, const QRectF& oval) const
{
    constexpr float kStrongest = 0.6F;
    QColor light = qColor(lightOf(m_well.colour()));
    QRadialGradient shine(oval.center(), width() / 2.0);
    light.setAlphaF(kStrongest * m_well.colour().brightness);
    shine.setColorAt(oval.width() / width() * 0.9, light);
    light.setAlphaF(0);
    shine.setColorAt(1, light);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shine);
    painter.drawEllipse(rect());
}

void OnOffButtonView::setCertain(bool certain)
{
    m_certain = certain;
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
    const bool on = m_model.state();
    const bool dark = isDark(*this);
    if (!isEnabled() || !m_certain)
        painter.setOpacity(kDisabled);
    else if (!on)
        painter.setOpacity(kOff);
    const OnOffButtonPaint paint = onOffButtonPaint(
        rectangleFrom(QRectF(rect())), {m_model.state(), isDown(), dark, m_well.colour()});
    const QRectF oval = qRect(paint.oval);
    if (on && m_certain)
        paintShine(painter, oval);
    painter.setPen(Qt::NoPen);
    for (const Rgba& fill : paint.fills) {
        painter.setBrush(qColor(fill));
        painter.drawEllipse(oval);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(qColor(paint.outline), paint.outlineWidth));
    painter.drawEllipse(oval);
    paintGlow(painter, oval);
    paintPowerSign(painter, oval, on ? signColour(paint.fills.back()) : signWhileOff(*this));
    if (showsFocusRing(*this)) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(oval.adjusted(-3, -3, 3, 3));
    }
}

} // namespace lumeroom
