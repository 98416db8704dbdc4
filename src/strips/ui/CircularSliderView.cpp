#include "strips/ui/CircularSliderView.h"

#include "strips/WheelPainting.h"
#include "strips/ui/FocusRing.h"
#include "strips/ui/Painting.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lumeroom {

namespace {

Point pointFrom(const QPointF& point)
{
    return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

QPointF qPoint(const Point& point)
{
    return {point.x, point.y};
}

/// The wheel at full brightness, each device pixel with the colour that the knob gives there.
QImage renderWheel(const SSCircularSlider& slider, double ratio)
{
    const Size size = slider.size();
    QImage image(
        (QSizeF(size.width, size.height) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    const Point center = slider.center();
    const auto scale = static_cast<float>(ratio);
    for (int row = 0; row < image.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int column = 0; column < image.width(); ++column) {
            const float x = (static_cast<float>(column) + 0.5F) / scale - center.x;
            const float y = center.y - (static_cast<float>(row) + 0.5F) / scale;
            // A pixel that the edge runs through is covered in part.
            const float inside = (slider.trackRadius() - std::hypot(x, y)) * scale + 0.5F;
            Rgba rgba = wheelColour(slider.getWhites(), {x / slider.reach(), y / slider.reach()});
            rgba.alpha = std::clamp(inside, 0.0F, 1.0F);
            line[column] = qPremultiply(qColor(rgba).rgba());
        }
    }
    return image;
}

} // namespace

CircularSliderView::CircularSliderView(SSCircularSlider& slider, QWidget* parent)
    : QWidget(parent)
    , m_slider(slider)
{
    setFixedSize(QSizeF(slider.size().width, slider.size().height).toSize());
    setFocusPolicy(Qt::StrongFocus);
}

const QImage& CircularSliderView::wheel()
{
    const double ratio = devicePixelRatioF();
    if (m_wheel.isNull() || m_wheel.devicePixelRatio() != ratio
        || m_wheelIsWhite != m_slider.getWhites()) {
        m_wheel = renderWheel(m_slider, ratio);
        m_wheelIsWhite = m_slider.getWhites();
    }
    return m_wheel;
}

void CircularSliderView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintWheel(painter);
    paintBall(painter);
}

void CircularSliderView::paintWheel(QPainter& painter)
{
    const QPointF center = qPoint(m_slider.center());
    const double radius = m_slider.trackRadius();
    painter.drawImage(QPointF(0, 0), wheel());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0, 0, 0, wheelShade(m_slider.brightness())));
    painter.drawEllipse(center, radius, radius);
    // A hairline makes the pale parts of the edge show on a light ground.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(isDark(*this) ? QColor(255, 255, 255, 50) : QColor(0, 0, 0, 50), 1));
    painter.drawEllipse(center, radius, radius);
}

void CircularSliderView::paintBall(QPainter& painter)
{
    const QPointF ball = qPoint(m_slider.ballCenter());
    const double radius = SSCircularSlider::kBallRadius;
    painter.setPen(QPen(QColor(0, 0, 0, 110), 1));
    painter.setBrush(m_slider.isBallHighlighted() ? QColor(225, 225, 230) : QColor(Qt::white));
    painter.drawEllipse(ball, radius - 0.5, radius - 0.5);
    painter.setBrush(qColor(wheelColour(m_slider.getWhites(), m_slider.getXOffsetAndYOffset())));
    painter.drawEllipse(ball, radius - 3, radius - 3);
    if (showsFocusRing(*this)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(ball, radius + 0.5, radius + 0.5);
    }
}

void CircularSliderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_slider.mouseDown(pointFrom(event->position()));
    update();
}

void CircularSliderView::mouseMoveEvent(QMouseEvent* event)
{
    m_slider.mouseDragged(pointFrom(event->position()));
    update();
}

void CircularSliderView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_slider.mouseUp();
    update();
}

/// Nobody tells of a release after that.
void CircularSliderView::hideEvent(QHideEvent* event)
{
    m_slider.mouseUp();
    QWidget::hideEvent(event);
}

/// The arrows push the knob their way.
void CircularSliderView::keyPressEvent(QKeyEvent* event)
{
    constexpr float kStep = 0.05F;
    Point offset = m_slider.getXOffsetAndYOffset();
    switch (event->key()) {
    case Qt::Key_Left:
        offset.x -= kStep;
        break;
    case Qt::Key_Right:
        offset.x += kStep;
        break;
    case Qt::Key_Up:
        offset.y += kStep;
        break;
    case Qt::Key_Down:
        offset.y -= kStep;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    m_slider.setXOffsetAndYOffset(offset);
    m_slider.sendAction();
    update();
}

} // namespace lumeroom
