#pragma once

#include "strips/ColourWellModel.h"
#include "strips/ui/PopoverFrame.h"

#include <QPointer>

class QAbstractButton;

namespace lumeroom {

class CircularSliderView;
class SliderView;

/// The picker beside a well, which all wells of a window share. A press outside, Return or
/// Escape closes it.
class ColourPickerPopover : public PopoverFrame, private ControlTarget {
    Q_OBJECT
    Q_CLASSINFO("role", "Dialog")

public:
    ColourPickerPopover();
    ~ColourPickerPopover() override;

    const std::shared_ptr<ZTColourPicker>& picker() const { return m_picker; }
    /// On the screen as a whole: beside the well, or below or above it if there is no room.
    void showAt(QWidget& well, ColourWellPopover::Edge preferredEdge);
    bool isShownAt(const QWidget& well) const { return isVisible() && m_well == &well; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

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
    SliderView* m_brightnessView = nullptr;
    QPointer<QWidget> m_well;
    QRect m_wellOnScreen;
    QMetaObject::Connection m_wellGone;
};

} // namespace lumeroom
