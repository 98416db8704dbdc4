#pragma once

#include "strips/StripControls.h"

namespace lumeroom {

/// The colour slider of a lamp moves the well alone: what the well shows by it is sent later, with
/// the well, or forgotten. Until then it has a button to send it.
class UnsentColour {
public:
    /// `changed` is told that the user's hand has made the well show one, or that it no longer
    /// does. The controls must outlive this.
    UnsentColour(StripControls& controls, std::function<void(bool shown)> changed);

    bool isShown() const { return m_isShown; }
    /// The slider was moved, of a lamp that has this colour as far as that is known.
    void sliderWasMoved(const std::optional<double>& lampsColour, bool byHand);
    /// It was sent, or the well shows another.
    void forget() { set(false, false); }
    void send() { m_controls.colourWell.act(); }

    /// What shows now is what `putBack` brings back.
    void pickerWasOpened();
    void putBack();

private:
    void set(bool shown, bool byHand);

    StripControls& m_controls;
    std::function<void(bool shown)> m_changed;
    bool m_isShown = false;
    std::optional<float> m_beforePicking; ///< on the colour slider
};

} // namespace lumeroom
