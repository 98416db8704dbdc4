#pragma once

#include "base/Geometry.h"

#include <functional>

namespace lumeroom {

class Log;

/// A round slider whose knob has two values, its angle and its distance from the centre. The
/// picker's wheel is one.
class SSCircularSlider {
public:
    enum class AngleUnits {
        Radians, ///< from the right, anticlockwise
        Degrees, ///< from the top, clockwise, 0 to 360
    };
    enum class Behavior { Never, Always, WithShift };

    /// Angle, in the units set, and distance.
    struct Polar {
        float angle = 0;
        float distance = 0;
    };

    /// The wheel's pictures are made for the size of 200 by 200.
    explicit SSCircularSlider(Size size, Log* log = nullptr);

    void setAngleAndDistance(Polar place);
    Polar getAngleAndDistance() const;
    /// The knob's place from the centre: x to the right, y upwards. Both are 0 at the centre and at
    /// most the maximum distance.
    void setXOffsetAndYOffset(Point offset);
    Point getXOffsetAndYOffset() const;

    void setWhites(bool whites) { m_whites = whites; }
    bool getWhites() const { return m_whites; }
    /// 0 to 1: how bright the wheel is painted.
    void setBrightness(float brightness) { m_brightness = brightness; }
    float brightness() const { return m_brightness; }

    void setAllowsCenterPoint(bool allows) { m_allowsCenter = allows; }
    void setAllowsNonEdgePositions(bool allows) { m_allowsNonEdge = allows; }
    void setMaximumDistance(float distance) { m_maxDistance = distance; }
    void setAngleUnits(AngleUnits units) { m_angleUnits = units; }
    void setSnapBehavior(Behavior behavior) { m_snapBehavior = behavior; }
    void setNumberOfSnapMarks(int marks) { m_snapMarks = marks; }
    void setDrawTicksBehavior(Behavior behavior) { m_drawSnapBehavior = behavior; }
    /// Every appearance is drawn alike.
    void setAppearance(int) { }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }
    /// A continuous slider acts on every movement, another one when the knob is let go.
    void setContinuous(bool continuous) { m_continuous = continuous; }
    void setAction(std::function<void()> action) { m_action = std::move(action); }
    void sendAction() const;

    // The mouse, in the slider's own coordinates with y downwards. `shift`: the key is held.
    /// Whether the press takes the knob.
    bool mouseDown(Point point, bool shift);
    void mouseDragged(Point point, bool shift);
    void mouseUp();
    /// The knob is held, and drawn so.
    bool isBallHighlighted() const { return m_ballHighlighted; }

    // For drawing
    Size size() const { return m_size; }
    Point center() const { return {m_size.width / 2, m_size.height / 2}; }
    /// The outer edge of the track from the centre.
    float trackRadius() const;
    /// How far from the centre the knob stands at the maximum distance.
    float reach() const;
    Point ballCenter() const;
    int ballRadius() const;
    /// A slider of no known size is drawn as plain shapes, which the log tells once per run.
    bool drawsPlainShapes() const;
    /// How many marks to draw for the knob to snap to.
    int shownSnapMarks(bool shift) const;

private:
    void constrainAngleAndDistance(bool shift);
    void snap(bool shift);
    void moveToOffset(Point offset, bool shift);
    Point offsetAt(Point point) const;
    bool isInAllowedZone(Point point) const;

    Size m_size;
    Log* m_log;
    std::function<void()> m_action;
    bool m_continuous = true;
    bool m_enabled = true;
    bool m_allowsCenter = true;
    bool m_allowsNonEdge = true;
    bool m_ballHighlighted = false;
    bool m_whites = false;
    float m_maxDistance = 1;
    float m_angle = 0; ///< radians
    float m_distance = 1;
    float m_brightness = 1;
    int m_snapMarks = 8;
    AngleUnits m_angleUnits = AngleUnits::Radians;
    Behavior m_snapBehavior = Behavior::Never;
    Behavior m_drawSnapBehavior = Behavior::Never;
};

} // namespace lumeroom
