#pragma once

#include "base/Geometry.h"

#include <functional>

namespace lumeroom {

/// A round slider whose knob has two values, its angle and its distance from the centre. The
/// picker's wheel is one.
class SSCircularSlider {
public:
    /// Degrees from the top, clockwise, 0 to 360, and the distance, 0 to 1.
    struct Polar {
        float angle = 0;
        float distance = 0;
    };

    explicit SSCircularSlider(Size size)
        : m_size(size)
    {
    }

    void setAngleAndDistance(Polar place);
    Polar getAngleAndDistance() const;
    /// The knob's place from the centre: x to the right, y upwards. Both are 0 at the centre; its
    /// distance is at most 1.
    void setXOffsetAndYOffset(Point offset);
    Point getXOffsetAndYOffset() const;

    void setWhites(bool whites) { m_whites = whites; }
    bool getWhites() const { return m_whites; }
    /// 0 to 1: how bright the wheel is painted.
    void setBrightness(float brightness) { m_brightness = brightness; }
    float brightness() const { return m_brightness; }

    /// On every movement.
    void setAction(std::function<void()> action) { m_action = std::move(action); }
    void sendAction() const;

    // The mouse, in the slider's own coordinates with y downwards
    /// Whether the press takes the knob.
    bool mouseDown(Point point);
    void mouseDragged(Point point);
    void mouseUp() { m_ballHighlighted = false; }
    /// The knob is held, and drawn so.
    bool isBallHighlighted() const { return m_ballHighlighted; }

    // For drawing
    Size size() const { return m_size; }
    Point center() const { return {m_size.width / 2, m_size.height / 2}; }
    /// The outer edge of the track from the centre.
    float trackRadius() const;
    /// How far from the centre the knob stands at a distance of 1.
    float reach() const;
    Point ballCenter() const;
    static constexpr int kBallRadius = 7;

private:
    Point offsetAt(Point point) const;

    Size m_size;
    std::function<void()> m_action;
    bool m_ballHighlighted = false;
    bool m_whites = false;
    float m_angle = 0; ///< radians
    float m_distance = 1;
    float m_brightness = 1;
};

} // namespace lumeroom
