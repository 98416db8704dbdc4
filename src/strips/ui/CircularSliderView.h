#pragma once

#include "strips/SSCircularSlider.h"

#include <QImage>
#include <QWidget>

namespace lumeroom {

/// The picker's wheel with its knob. Its owner calls `update` when the slider has changed.
class CircularSliderView : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "ColorChooser")

public:
    CircularSliderView(SSCircularSlider& slider, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintWheel(QPainter& painter);
    void paintBall(QPainter& painter);
    const QImage& wheel();

    SSCircularSlider& m_slider;
    QImage m_wheel;
    bool m_wheelIsWhite = false;
};

} // namespace lumeroom
