#pragma once

#include "strips/ColourWellModel.h"

#include <QAbstractButton>

namespace lumeroom {

class ColourPickerPopover;

/// A round swatch of a colour. A click opens the picker, the wheel dims, and colours can be dragged
/// out and dropped in. The model and, until the last click, the picker must outlive it.
class ColourWellView : public QAbstractButton, private ColourWellPopover {
    Q_OBJECT

public:
    ColourWellView(ColourWellModel& model, ColourPickerPopover& picker, QWidget* parent);
    ~ColourWellView() override;

    QSize sizeHint() const override;
    /// Of the whole, 0 to 1.
    void setProminence(double prominence);
    /// Its colour is being dragged to somewhere, or picked.
    bool isInUse() const;

protected:
    /// Waits until the drag is over. The well may be gone then.
    virtual void startDrag(QPoint press);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void showAtWell(Edge preferredEdge) override;
    void mirror();

    ColourWellModel& m_model;
    ColourPickerPopover& m_picker;
    std::optional<QPoint>
        m_pointedAt; ///< where the well was on the screen when the mouse moved on it
    double m_prominence = 1;
    bool m_dragged = false;
    std::optional<QPoint> m_press; ///< where the left button went down, while it may become a drag
};

} // namespace lumeroom
