#include "strips/Controls.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

void ButtonModel::press()
{
    if (!isEnabled())
        return;
    if (m_kind == Kind::TwoStates)
        setState(!m_state);
    if (m_action)
        m_action();
    else if (m_target)
        m_target->handleControl(*this);
}

void TextModel::setText(const std::string& text)
{
    setStandIn({});
    assign(m_text, text);
}

void SliderModel::setValue(float value)
{
    if (std::isnan(value))
        return;
    assign(m_value, std::clamp(value, 0.0F, m_maximum));
}

void SliderModel::moveTo(float value)
{
    if (!isEnabled())
        return;
    setValue(value);
    if (!m_held)
        m_stroke = nullptr;
    didMove();
}

void SliderModel::setHeld(bool held)
{
    if (held && !m_held)
        m_stroke = newStroke();
    m_held = held;
}

bool SliderModel::confirm()
{
    return isEnabled() && m_confirmed && m_confirmed();
}

void SliderModel::didMove()
{
    if (m_target)
        m_target->handleControl(*this);
}

void ZTSlider::handleChange()
{
    m_actionFilter.controlDidChange();
    if (target())
        target()->unfilteredAction(*this);
}

void ZTSlider::fireFilteredAction()
{
    if (target())
        target()->handleControl(*this);
}

} // namespace lumeroom
