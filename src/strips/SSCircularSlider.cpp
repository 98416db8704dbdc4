#include "strips/SSCircularSlider.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumeroom {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kTrackInset = 10.5F;
constexpr float kBallInset = 3; // the knob's furthest place from the edge of the track

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

} // namespace

void SSCircularSlider::setAngleAndDistance(Polar place)
{
    m_angle = radiansFrom(place.angle);
    m_distance = std::min(place.distance, 1.0F);
}

SSCircularSlider::Polar SSCircularSlider::getAngleAndDistance() const
{
    return {degreesFrom(m_angle), m_distance};
}

void SSCircularSlider::setXOffsetAndYOffset(Point offset)
{
    m_angle = std::atan2(offset.y, offset.x); // 0 at the centre
    m_distance = std::min(std::hypot(offset.x, offset.y), 1.0F);
}

Point SSCircularSlider::getXOffsetAndYOffset() const
{
    return {m_distance * std::cos(m_angle), m_distance * std::sin(m_angle)};
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
    return {center().x + offset.x * reach(), center().y - offset.y * reach()};
}

Point SSCircularSlider::offsetAt(Point point) const
{
    return {(point.x - center().x) / reach(), (center().y - point.y) / reach()};
}

// On the track or a little beyond it, and on the knob where that stands out further.
bool SSCircularSlider::mouseDown(Point point)
{
    constexpr float kEdgeZoneOutside = 1;
    const auto isWithin = [point](float distance, Point of) {
        return std::hypot(point.x - of.x, point.y - of.y) <= distance;
    };
    if (!isWithin(kBallRadius + 1, ballCenter())
        && !isWithin(trackRadius() + kEdgeZoneOutside, center()))
        return false;
    m_ballHighlighted = true;
    mouseDragged(point);
    return true;
}

void SSCircularSlider::mouseDragged(Point point)
{
    if (!m_ballHighlighted)
        return;
    setXOffsetAndYOffset(offsetAt(point));
    sendAction();
}

} // namespace lumeroom
