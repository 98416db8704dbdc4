#pragma once

#include "strips/ControlPainting.h"
#include "strips/Controls.h"

#include <QAbstractSlider>

namespace lumeroom {

/// A slider with a painted bar and a round knob, mirroring a model. A press on the knob takes hold
/// of it, one on the bar brings it there. Upright, its greatest value is at the top.
class SliderView : public QAbstractSlider {
    Q_OBJECT

public:
    using MakeBar = std::function<SliderBar(const Rectangle& inside, bool dark)>;

    /// `name` is what the slider sets, for assistive technology: "brightness".
    SliderView(SliderModel& model, MakeBar makeBar, const QString& name, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void mirror();
    void follow(QPointF mouse);
    /// Along the bar, from 0 at its low end to 1.
    double placeOf(QPointF point) const;
    QRectF barRoom() const;
    QPointF knobCentre() const;

    SliderModel& m_model;
    MakeBar m_makeBar;
    bool m_mirroring = false;
    double m_grip = 0; ///< from the knob's place to that of the mouse that took hold of it
};

} // namespace lumeroom
