#include "strips/ui/SliderView.h"

#include "strips/StripWords.h"
#include "strips/ui/FocusRing.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"
#include "strips/ui/ValueBubble.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <cmath>

namespace lumeroom {

namespace {

constexpr double kKnobRadius = 8;
constexpr int kThickness = 26;
constexpr int kShortest = 70;
constexpr int kUsualLength = 130;
constexpr int kSign = 16;
constexpr int kSignGap = 5;
constexpr int kKeySteps = 50; // arrow keys from one end to the other
constexpr int kPageSteps = 10;
constexpr double kDisabled = 0.3;
constexpr int kValueStaysMilliseconds = 1200; // where no button is held

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
    connect(this, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (m_mirroring)
            return;
        m_model.moveTo(static_cast<float>(value));
        showValue();
        if (!isSliderDown())
            hideValueSoon(); // after a key, or a screen reader, which lets nothing go
    });
    followModel(m_model, this, &SliderView::mirror);
}

/// The bubble is the window's.
SliderView::~SliderView()
{
    delete m_bubble;
}

void SliderView::setSign(Icon sign)
{
    m_sign = sign;
    updateGeometry();
}

void SliderView::setProminence(double prominence)
{
    m_prominence = prominence;
    update();
}

void SliderView::mirror()
{
    m_mirroring = true;
    mirrorControl(*this, m_model);
    if (!m_model.isEnabled())
        letGo(); // nobody tells a disabled widget that the button was let go
    if (!isSliderDown())
        setValue(m_model.integerValue());
    setAccessibleDescription(QString::fromStdString(sliderText(m_model)));
    update();
    m_mirroring = false;
}

QSize SliderView::sizeHint() const
{
    return sizeOfLength(kUsualLength);
}

QSize SliderView::sizeOfLength(int bar) const
{
    const QSize size(bar + (m_sign ? kSign + kSignGap : 0), kThickness);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

QSize SliderView::minimumSizeHint() const
{
    return sizeOfLength(kShortest);
}

QRect SliderView::signRoom() const
{
    if (!m_sign)
        return {};
    return orientation() == Qt::Horizontal
        ? QRect(0, (height() - kSign) / 2, kSign, kSign)
        : QRect((width() - kSign) / 2, height() - kSign, kSign, kSign);
}

QRectF SliderView::barRoom() const
{
    constexpr double kEnd = kKnobRadius + 1;
    const double sign = m_sign ? kSign + kSignGap : 0;
    return orientation() == Qt::Horizontal ? QRectF(rect()).adjusted(sign + kEnd, 0, -kEnd, 0)
                                           : QRectF(rect()).adjusted(0, kEnd, 0, -kEnd - sign);
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
    painter.setOpacity(isEnabled() ? m_prominence : m_prominence * kDisabled);
    if (m_sign) {
        painter.save();
        painter.setOpacity(painter.opacity() * 0.7);
        icon(*m_sign, palette()).paint(&painter, signRoom());
        painter.restore();
    }
    paintBar(painter, dark);
    if (isEnabled())
        paintKnob(painter, dark);
}

void SliderView::paintBar(QPainter& painter, bool dark) const
{
    SliderBar bar = m_makeBar(rectangleFrom(barRoom()), dark);
    const QRectF whole = qRect(bar.rectangle);
    // A hairline makes the white end of a bar show on a light ground.
    painter.setPen(QPen(dark ? QColor(255, 255, 255, 34) : QColor(0, 0, 0, 44), 1));
    painter.setBrush(dark ? QColor(255, 255, 255, 38) : QColor(0, 0, 0, 34));
    painter.drawRoundedRect(whole.adjusted(-0.5, -0.5, 0.5, 0.5), 2.5, 2.5);
    if (!bar.filledToKnob) {
        paintSliderBar(painter, bar);
        return;
    }
    painter.save();
    const QPointF knob = knobCentre();
    painter.setClipRect(orientation() == Qt::Horizontal
            ? QRectF(QPointF(0, 0), QPointF(knob.x(), height()))
            : QRectF(QPointF(0, knob.y()), QPointF(width(), height())));
    paintSliderBar(painter, bar);
    painter.restore();
}

void SliderView::paintKnob(QPainter& painter, bool dark) const
{
    const QPointF knob = knobCentre();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawEllipse(knob + QPointF(0, 0.8), kKnobRadius, kKnobRadius);
    painter.setBrush(dark ? QColor(236, 236, 240) : QColor(255, 255, 255));
    painter.setPen(QPen(QColor(0, 0, 0, dark ? 90 : 70), 1));
    painter.drawEllipse(knob, kKnobRadius - 0.5, kKnobRadius - 0.5);
    const bool focused = showsFocusRing(*this);
    if (focused || isSliderDown() || underMouse()) {
        QColor ring = palette().color(QPalette::Highlight);
        ring.setAlphaF(focused || isSliderDown() ? 1.0F : 0.5F);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ring, 2));
        painter.drawEllipse(knob, kKnobRadius, kKnobRadius);
    }
}

/// The tool tip is made when it is asked for: the value changes more often than one looks.
bool SliderView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractSlider::event(event);
    const QString text = QString::fromStdString(sliderNameAndText(m_model));
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text), this);
    return true;
}

void SliderView::showValue()
{
    m_model.setShowsValue(true);
    if (!m_bubble)
        m_bubble = new ValueBubble(*this);
    m_bubble->showAt(mapTo(window(), knobCentre().toPoint()), static_cast<int>(kKnobRadius),
        orientation(), QString::fromStdString(sliderText(m_model)));
}

void SliderView::hideValue()
{
    m_model.setShowsValue(false);
    if (m_bubble)
        m_bubble->deleteLater();
    m_bubble = nullptr;
}

void SliderView::hideValueSoon()
{
    if (!m_hideSoon) {
        m_hideSoon = new QTimer(this);
        m_hideSoon->setSingleShot(true);
        connect(m_hideSoon, &QTimer::timeout, this, [this] {
            if (!isSliderDown())
                hideValue();
        });
    }
    m_hideSoon->start(kValueStaysMilliseconds);
}

void SliderView::letGo()
{
    setSliderDown(false);
    m_model.setHeld(false);
    hideValue();
}

void SliderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || signRoom().contains(event->position().toPoint()))
        return;
    setSliderDown(true);
    m_model.setHeld(true);
    const QPointF mouse = event->position();
    const bool onKnob = QLineF(mouse, knobCentre()).length() <= kKnobRadius;
    m_grip = onKnob ? placeOf(mouse) - placeOf(knobCentre()) : 0;
    if (!onKnob)
        follow(mouse);
    showValue();
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
    letGo();
    mirror(); // the lamp may have reported meanwhile, to a knob held still
}

void SliderView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->setAccepted(m_model.confirm()); // else it may be meant for the panel
        return;
    }
    QAbstractSlider::keyPressEvent(event);
}

void SliderView::focusOutEvent(QFocusEvent* event)
{
    QAbstractSlider::focusOutEvent(event);
    if (!isSliderDown())
        hideValue();
}

void SliderView::hideEvent(QHideEvent* event)
{
    letGo();
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
