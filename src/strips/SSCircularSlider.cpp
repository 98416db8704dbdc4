#include "strips/SSCircularSlider.h"

#include "base/Log.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumeroom {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kTrackInset = 10.5F;
constexpr float kBallInset = 3; // the knob's furthest place from the edge of the track

// Sizes in points
constexpr float kSmallSize = 60;
constexpr float kMiddleSize = 80;
constexpr float kWheelSize = 200;

bool isSquareOf(const Size& size, float side)
{
    return size.width == side && size.height == side;
}

float radiansFrom(float degrees)
{
    const float radians = -degrees / 180 * kPi + kPi / 2;
    return radians < -kPi ? radians + 2 * kPi : radians;
}

float degreesFrom(float radians)
{
    const float degrees = 90 - radians / kPi * 180;
    return degrees < 0 ? degrees + 360 : degrees;
}

bool applies(SSCircularSlider::Behavior behavior, bool shift)
{
    return behavior == SSCircularSlider::Behavior::Always
        || (behavior == SSCircularSlider::Behavior::WithShift && shift);
}

} // namespace

SSCircularSlider::SSCircularSlider(Size size, Log* log)
    : m_size(size)
    , m_log(log)
{
}

void SSCircularSlider::setAngleAndDistance(Polar place)
{
    m_angle = m_angleUnits == AngleUnits::Degrees ? radiansFrom(place.angle) : place.angle;
    m_distance = place.distance;
    constrainAngleAndDistance(false);
}

SSCircularSlider::Polar SSCircularSlider::getAngleAndDistance() const
{
    return {m_angleUnits == AngleUnits::Degrees ? degreesFrom(m_angle) : m_angle, m_distance};
}

void SSCircularSlider::setXOffsetAndYOffset(Point offset)
{
    moveToOffset(offset, false);
}

void SSCircularSlider::moveToOffset(Point offset, bool shift)
{
    m_angle = std::atan2(offset.y, offset.x); // 0 at the centre
    m_distance = std::sqrt(offset.x * offset.x + offset.y * offset.y);
    constrainAngleAndDistance(shift);
}

Point SSCircularSlider::getXOffsetAndYOffset() const
{
    return {m_distance * std::cos(m_angle), m_distance * std::sin(m_angle)};
}

void SSCircularSlider::constrainAngleAndDistance(bool shift)
{
    constexpr float kNextToCenter = 0.01F;
    m_distance = std::min(m_distance, m_maxDistance);
    if (!m_allowsNonEdge)
        m_distance = m_allowsCenter && m_distance < m_maxDistance / 2 ? 0 : m_maxDistance;
    if (m_distance == 0 && !m_allowsCenter) {
        m_angle = 0;
        m_distance = kNextToCenter;
    }
    snap(shift);
}

void SSCircularSlider::snap(bool shift)
{
    if (!applies(m_snapBehavior, shift) || m_snapMarks < 1)
        return;
    const float step = 2 * kPi / static_cast<float>(m_snapMarks);
    m_angle = std::round(m_angle / step) * step;
}

void SSCircularSlider::sendAction() const
{
    if (m_action)
        m_action();
}

float SSCircularSlider::trackRadius() const
{
    return (m_size.width - 2 * kTrackInset) / 2;
}

float SSCircularSlider::reach() const
{
    return trackRadius() - kBallInset;
}

Point SSCircularSlider::ballCenter() const
{
    const Point offset = getXOffsetAndYOffset();
    const float scale = reach() / m_maxDistance;
    return {center().x + offset.x * scale, center().y - offset.y * scale};
}

Point SSCircularSlider::offsetAt(Point point) const
{
    const float scale = m_maxDistance / reach();
    return {(point.x - center().x) * scale, (center().y - point.y) * scale};
}

bool SSCircularSlider::isInAllowedZone(Point point) const
{
    constexpr float kCenterZone = 4;
    constexpr float kEdgeZoneInside = 6;
    constexpr float kEdgeZoneOutside = 1;
    const float distance = std::hypot(point.x - center().x, point.y - center().y);
    if (distance > trackRadius() + kEdgeZoneOutside)
        return false;
    if (distance >= trackRadius() - kEdgeZoneInside)
        return true;
    return distance < kCenterZone ? m_allowsCenter : m_allowsNonEdge;
}

bool SSCircularSlider::mouseDown(Point point, bool shift)
{
    const Point ball = ballCenter();
    const auto nearBall = static_cast<float>(ballRadius() + 1);
    const bool onBall = std::hypot(point.x - ball.x, point.y - ball.y) <= nearBall;
    if (!m_enabled || (!onBall && !isInAllowedZone(point)))
        return false;
    m_ballHighlighted = true;
    mouseDragged(point, shift);
    return true;
}

void SSCircularSlider::mouseDragged(Point point, bool shift)
{
    if (!m_ballHighlighted)
        return;
    moveToOffset(offsetAt(point), shift);
    if (m_continuous)
        sendAction();
}

void SSCircularSlider::mouseUp()
{
    if (!m_ballHighlighted)
        return;
    m_ballHighlighted = false;
    if (!m_continuous)
        sendAction();
}

int SSCircularSlider::ballRadius() const
{
    constexpr int kWheelBall = 7;
    constexpr int kSmallBall = 5;
    return isSquareOf(m_size, kWheelSize) ? kWheelBall : kSmallBall;
}

bool SSCircularSlider::drawsPlainShapes() const
{
    const bool standard = isSquareOf(m_size, kSmallSize) || isSquareOf(m_size, kMiddleSize)
        || isSquareOf(m_size, kWheelSize);
    static bool told = false;
    if (!standard && m_log && !told) {
        told = true;
        m_log->line("Using Quartz appearance due to non-standard size for SSCircularSlider "
                    "({:f}x{:f}).  Standard sizes are 60x60 and 80x80.",
            m_size.width, m_size.height);
    }
    return !standard;
}

int SSCircularSlider::shownSnapMarks(bool shift) const
{
    return applies(m_drawSnapBehavior, shift) ? m_snapMarks : 0;
}

} // namespace lumeroom
