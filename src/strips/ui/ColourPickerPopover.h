#pragma once

#include "strips/ColourWellModel.h"

#include <QFrame>

class QAbstractButton;

namespace lumeroom {

class CircularSliderView;

/// The picker beside a well, which all wells of a window share. A press outside or Escape closes
/// it.
class ColourPickerPopover : public QFrame, private ControlTarget {
    Q_OBJECT

public:
    ColourPickerPopover();
    ~ColourPickerPopover() override;

    const std::shared_ptr<ZTColourPicker>& picker() const { return m_picker; }
    /// On the screen as a whole: beside the well, or below or above it if there is no room.
    void showAt(QWidget& well, ColourWellPopover::Edge preferredEdge);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QAbstractButton* addMode(const QString& title, ZTColourPicker::Control control);
    void handleControl(const ControlModel& sender) override;
    void unfilteredAction(const ControlModel&) override { }
    void mirror();
    void showMode();
    void describeWheel();

    std::shared_ptr<ZTColourPicker> m_picker = std::make_shared<ZTColourPicker>();
    SliderModel m_brightness; ///< in levels, for the eye; the picker has the true value
    QAbstractButton* m_whites = nullptr;
    QAbstractButton* m_colours = nullptr;
    CircularSliderView* m_wheel = nullptr;
    QRect m_wellOnScreen;
    QMetaObject::Connection m_wellGone;
};

} // namespace lumeroom
