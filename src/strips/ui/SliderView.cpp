#include "strips/ui/SliderView.h"

#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace lumeroom {

namespace {

constexpr double kKnobRadius = 8;
constexpr int kThickness = 26;
constexpr int kShortest = 70;
constexpr int kUsualLength = 130;
constexpr int kKeySteps = 50; // arrow keys from one end to the other
constexpr int kPageSteps = 10;

} // namespace

SliderView::SliderView(SliderModel& model, MakeBar makeBar, const QString& name, QWidget* parent)
    : QAbstractSlider(parent)
    , m_model(model)
    , m_makeBar(std::move(makeBar))
{
    const int maximum = static_cast<int>(model.maximum());
    setOrientation(Qt::Horizontal);
    setRange(0, maximum);
    setSingleStep(std::max(1, maximum / kKeySteps));
    setPageStep(std::max(1, maximum / kPageSteps));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(name);
    setToolTip(name.left(1).toUpper() + name.mid(1));
    connect(this, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (!m_mirroring)
            m_model.moveTo(static_cast<float>(value));
    });
    followModel(m_model, this, &SliderView::mirror);
}

void SliderView::mirror()
{
    m_mirroring = true;
    mirrorControl(*this, m_model);
    if (!m_model.isEnabled())
        setSliderDown(false); // nobody tells a disabled widget that the button was let go
    if (!isSliderDown())
        setValue(m_model.integerValue());
    const double percent = 100.0 * m_model.value() / m_model.maximum();
    setAccessibleDescription(tr("%1 percent").arg(std::lround(percent)));
    update();
    m_mirroring = false;
}

QSize SliderView::sizeHint() const
{
    const QSize size(kUsualLength, kThickness);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

QSize SliderView::minimumSizeHint() const
{
    const QSize size(kShortest, kThickness);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

QRectF SliderView::barRoom() const
{
    constexpr double kEnd = kKnobRadius + 1;
    return orientation() == Qt::Horizontal ? QRectF(rect()).adjusted(kEnd, 0, -kEnd, 0)
                                           : QRectF(rect()).adjusted(0, kEnd, 0, -kEnd);
}

QPointF SliderView::knobCentre() const
{
    const QRectF room = barRoom();
    const double place = static_cast<double>(value()) / std::max(1, maximum());
    if (orientation() == Qt::Horizontal)
        return {room.left() + place * room.width(), room.center().y()};
    return {room.center().x(), room.bottom() - place * room.height()};
}

void SliderView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool dark = isDark(*this);
    if (!isEnabled())
        painter.setOpacity(0.3);

    const SliderBar bar = m_makeBar(rectangleFrom(barRoom()), dark);
    // A hairline makes the white end of a bar show on a light ground.
    painter.setPen(QPen(dark ? QColor(255, 255, 255, 30) : QColor(0, 0, 0, 60), 1));
    painter.setBrush(dark ? QColor(0, 0, 0, 60) : QColor(0, 0, 0, 25));
    painter.drawRoundedRect(qRect(bar.rectangle).adjusted(-0.5, -0.5, 0.5, 0.5), 2.5, 2.5);
    paintSliderBar(painter, bar);

    if (!isEnabled())
        return;
    const QPointF knob = knobCentre();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawEllipse(knob + QPointF(0, 0.8), kKnobRadius, kKnobRadius);
    painter.setBrush(dark ? QColor(214, 214, 218) : QColor(255, 255, 255));
    painter.setPen(QPen(dark ? QColor(0, 0, 0, 90) : QColor(0, 0, 0, 70), 1));
    painter.drawEllipse(knob, kKnobRadius - 0.5, kKnobRadius - 0.5);
    if (hasFocus() || underMouse()) {
        QColor ring = palette().color(QPalette::Highlight);
        ring.setAlphaF(hasFocus() ? 1.0F : 0.5F);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ring, 2));
        painter.drawEllipse(knob, kKnobRadius, kKnobRadius);
    }
}

void SliderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    const QPointF mouse = event->position();
    const bool onKnob = QLineF(mouse, knobCentre()).length() <= kKnobRadius;
    m_grip = onKnob ? placeOf(mouse) - placeOf(knobCentre()) : 0;
    if (!onKnob)
        follow(mouse);
}

void SliderView::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        follow(event->position());
}

void SliderView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return;
    follow(event->position());
    setSliderDown(false);
    mirror(); // the lamp may have reported meanwhile, to a knob held still
}

void SliderView::hideEvent(QHideEvent* event)
{
    setSliderDown(false);
    QAbstractSlider::hideEvent(event);
}

void SliderView::follow(QPointF mouse)
{
    setValue(
        static_cast<int>(std::lround(std::clamp(placeOf(mouse) - m_grip, 0.0, 1.0) * maximum())));
}

double SliderView::placeOf(QPointF point) const
{
    const QRectF room = barRoom();
    return orientation() == Qt::Horizontal ? (point.x() - room.left()) / room.width()
                                           : (room.bottom() - point.y()) / room.height();
}

/// The wheel scrolls the panel, whatever slider comes under the mouse.
void SliderView::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace lumeroom
