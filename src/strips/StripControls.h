#pragma once

#include "engine/Records.h"
#include "strips/ColourConversions.h"
#include "strips/ColourWellModel.h"
#include "strips/Controls.h"
#include "strips/StripSurroundings.h"

#include <array>

namespace lumeroom {

/// The controls of one strip, and the values that they show together.
struct StripControls {
    /// All controls but the selection button act on `target`.
    StripControls(const StripSurroundings& surroundings, ControlTarget& target);

    TextModel label{controltag::kLabel};
    ButtonModel onOffButton{controltag::kOnOffButton};
    ButtonModel selectedButton{controltag::kSelectionButton};
    ButtonModel effectButton{controltag::kEffectButton, ButtonModel::Kind::Momentary};
    BadgeModel kindBadge{controltag::kKindBadge};
    ButtonModel renameButton{controltag::kRenameButton, ButtonModel::Kind::Momentary};
    ButtonModel navigationButton{controltag::kNavigationButton, ButtonModel::Kind::Momentary};
    ZTSlider brightnessSlider;
    SliderModel colourSlider;
    ZTSlider satSlider;
    ZTSlider warmthSlider;
    ColourWellModel colourWell;
    /// Round the well while it shows what has not been sent.
    ButtonModel sendButton{0, ButtonModel::Kind::Momentary};
    /// Shades the bar of the saturation slider.
    float saturatedHueComponent = 0;

    std::array<SliderModel*, 4> sliders();
    std::array<const SliderModel*, 4> sliders() const;
    bool isSlider(const ControlModel& control) const;
    /// The four sliders and the well.
    bool isColourControl(const ControlModel& control) const;

    /// The user has just moved something, and it is still on its way to the strip.
    bool hasPendingAction() const;
    void cancelPendingActions();

    void setCapabilities(int capabilities);
    /// Of a target of which nothing is known yet no control can be used.
    void setUsable(bool usable);
    /// A zone goes on and off with its lamp.
    void setHasPower(bool hasPower);
    SliderValues sliderValues() const;
    /// What the sliders say, as settings with all four colour members.
    Settings settings() const;
    /// What one control of a lamp sends: a slider its own member alone, as a whole number, the
    /// well all four.
    Settings settingsOf(const ControlModel& control) const;

    void showColourOfSlidersInWell();
    /// The same, with the hue passed on to the saturation slider, and a redraw where one is due.
    void showColourOfSliders();
    void setSlidersFromWell();

    /// "label", "onoff", "brightness", "colour", "saturation" or "warmth"; the empty text for any
    /// other key.
    Value objectForKey(std::string_view key) const;
    /// Writes it to the control and does nothing else.
    void setObjectForKey(const Value& value, std::string_view key);

private:
    void enableControls();

    bool m_usable = true;
    bool m_hasPower = true;
};

} // namespace lumeroom
