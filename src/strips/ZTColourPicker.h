#pragma once

#include "strips/Colour.h"
#include "strips/SSCircularSlider.h"

namespace lumeroom {

/// The well whose colour is being picked.
class ZTColourPickerDelegate {
public:
    virtual ~ZTColourPickerDelegate() = default;
    virtual void userHasPickedColour(const Colour& colour) = 0;
    /// The colour with which the picker was opened is wanted again.
    virtual void userHasCancelled() = 0;
};

/// Picks a colour with a wheel and a brightness slider. The wheel is one of colours, hue by angle
/// and saturation by distance, or one of whites, whose temperature falls from left to right.
class ZTColourPicker {
public:
    enum class Control { Whites, Colours, BrightnessSlider };

    ZTColourPicker();
    ZTColourPicker(const ZTColourPicker&) = delete;
    ZTColourPicker& operator=(const ZTColourPicker&) = delete;

    /// Told of every pick, at full rate; may be null.
    void setDelegate(ZTColourPickerDelegate* delegate) { m_delegate = delegate; }
    ZTColourPickerDelegate* delegate() const { return m_delegate; }

    /// Shows the colour; a saturated one turns a wheel of whites into one of colours. The delegate
    /// hears of no more than that turn.
    void setColour(const Colour& colour);
    /// What the controls stand for. A wheel of whites remembers the kelvin of its knob with this.
    Colour getColor();
    /// The same, and nothing is remembered.
    Colour shownColour() const;

    void switchToWhitesMode() { handleControl(Control::Whites); }
    bool isPickingWhites() const { return m_mainSlider.getWhites(); }
    /// Changes the wheel alone: the knob and the delegate's colour stay.
    void setPickingWhites(bool whites);

    /// The user pressed or moved this control.
    void handleControl(Control sender);
    void cancel()
    {
        if (m_delegate)
            m_delegate->userHasCancelled();
    }
    /// The user moved something: the delegate is given the colour.
    void sliderChanged();

    SSCircularSlider& mainSlider() { return m_mainSlider; }
    const SSCircularSlider& mainSlider() const { return m_mainSlider; }
    /// 0 to 1.
    float brightness() const { return m_brightness; }
    /// The user moved the brightness slider.
    void moveBrightnessTo(float brightness);
    int kelvin() const { return m_kelvin; }

    /// The view's wish to be told when there is something to redraw.
    std::function<void()> onChange;

private:
    void setNeedsDisplay() const
    {
        if (onChange)
            onChange();
    }

    SSCircularSlider m_mainSlider;
    float m_brightness = 1;
    int m_kelvin = kDefaultKelvin;
    ZTColourPickerDelegate* m_delegate = nullptr;
};

} // namespace lumeroom
