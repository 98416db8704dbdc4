#include "strips/UnsentColour.h"

#include "engine/LampUnits.h"
#include "strips/StripWords.h"

#include <utility>

namespace lumeroom {

UnsentColour::UnsentColour(StripControls& controls, std::function<void(bool shown)> changed)
    : m_controls(controls)
    , m_changed(std::move(changed))
{
    m_controls.sendButton.setToolTip("Send this colour to the lamp");
    m_controls.sendButton.setAction([this] { send(); });
    m_controls.colourSlider.setConfirmation([this] {
        if (!m_isShown)
            return false;
        send();
        return true;
    });
}

void UnsentColour::sliderWasMoved(const std::optional<double>& lampsColour, bool byHand)
{
    set(lampsColour && integerPart(*lampsColour) != m_controls.colourSlider.integerValue(), byHand);
}

void UnsentColour::set(bool shown, bool byHand)
{
    const bool was = std::exchange(m_isShown, shown);
    m_controls.sendButton.setHidden(!shown);
    m_controls.colourWell.setToolTip(std::string(shown ? kHowToSend : ""));
    if (shown ? byHand : was)
        m_changed(shown);
}

void UnsentColour::pickerWasOpened()
{
    m_beforePicking.reset();
    if (m_isShown)
        m_beforePicking = m_controls.colourSlider.value();
}

void UnsentColour::putBack()
{
    if (!m_beforePicking)
        return;
    m_controls.colourSlider.setValue(*m_beforePicking);
    m_controls.showColourOfSlidersInWell();
    set(true, true);
}

} // namespace lumeroom
