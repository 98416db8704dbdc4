#pragma once

#include "strips/ControlPainting.h"
#include "strips/Controls.h"
#include "strips/ui/Icons.h"

#include <QAbstractSlider>
#include <QPointer>

#include <optional>

class QTimer;

namespace lumeroom {

class ValueBubble;

/// A slider with a painted bar and a round knob, mirroring a model. A press on the knob takes hold
/// of it, one on the bar brings it there. Upright, its greatest value is at the top. A sign before
/// the bar, or under an upright one, tells what it sets; while it moves, a bubble tells the value.
class SliderView : public QAbstractSlider {
    Q_OBJECT

public:
    using MakeBar = std::function<SliderBar(const Rectangle& inside, bool dark)>;

    /// `name` is what the slider sets, for assistive technology: "brightness".
    SliderView(SliderModel& model, MakeBar makeBar, const QString& name, QWidget* parent);

    ~SliderView() override;

    void setSign(Icon sign);
    /// Of the whole, 0 to 1.
    void setProminence(double prominence);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void mirror();
    void follow(QPointF mouse);
    void letGo();
    void showValue();
    void hideValue();
    void hideValueSoon();
    void paintBar(QPainter& painter, bool dark) const;
    void paintKnob(QPainter& painter, bool dark) const;
    /// Along the bar, from 0 at its low end to 1.
    double placeOf(QPointF point) const;
    QRectF barRoom() const;
    QRect signRoom() const;
    QSize sizeOfLength(int bar) const;
    QPointF knobCentre() const;

    SliderModel& m_model;
    MakeBar m_makeBar;
    std::optional<Icon> m_sign;
    double m_prominence = 1;
    bool m_mirroring = false;
    double m_grip = 0; ///< from the knob's place to that of the mouse that took hold of it
    QPointer<ValueBubble> m_bubble; ///< the window's
    QTimer* m_hideSoon = nullptr; ///< made when the value changes without a button
};

} // namespace lumeroom
