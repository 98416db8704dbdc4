#include "strips/StripCaption.h"

#include "base/LocalTime.h"
#include "strips/StripControls.h"
#include "strips/StripWords.h"

#include <fmt/core.h>

namespace lumeroom {

namespace {

constexpr std::string_view kBetween = " · ";

/// The parts that there are.
std::string joined(const std::string& first, const std::string& second)
{
    if (first.empty() || second.empty())
        return first + second;
    return fmt::format("{}{}{}", first, kBetween, second);
}

} // namespace

StripCaption::StripCaption(StripControls& controls, bool isGroup, RunLoop& runLoop)
    : m_controls(controls)
    , m_isGroup(isGroup)
    , m_runLoop(runLoop)
{
    for (ControlModel* control : {static_cast<ControlModel*>(&controls.onOffButton),
             static_cast<ControlModel*>(&controls.colourWell),
             static_cast<ControlModel*>(&controls.sendButton)})
        m_subscriptions.push_back(control->listen([this] { update(); }));
    for (SliderModel* slider : controls.sliders())
        m_subscriptions.push_back(slider->listen([this] { update(); }));
    update();
}

StripState StripCaption::state() const
{
    using Contact = StripCondition::Contact;
    if (m_condition.contact == Contact::Silent)
        return StripState::NotAnswering;
    if (m_condition.contact == Contact::Waiting)
        return StripState::Waiting;
    // A group may count as off while some of its lamps are on.
    const bool on = m_controls.onOffButton.state() || m_condition.lampsOn > 0;
    return on ? StripState::On : StripState::Off;
}

void StripCaption::setCondition(const StripCondition& condition)
{
    m_condition = condition;
    update();
}

void StripCaption::setEffect(const std::string& name)
{
    m_effect = name;
    update();
}

void StripCaption::update()
{
    m_model.show(captionOfNow());
}

Caption StripCaption::captionOfNow() const
{
    Caption caption;
    caption.state = state();
    caption.lights = m_condition.lights;
    switch (caption.state) {
    case StripState::Waiting:
        caption.text = m_isGroup ? "Waiting for the lamps" : "Waiting for the lamp";
        break;
    case StripState::NotAnswering:
        caption.text = "Not answering";
        caption.toolTip = adviceForSilence();
        caption.isWarning = true;
        break;
    case StripState::Off:
        caption.text = "Off";
        break;
    case StripState::On:
        caption.text = textWhileOn();
        break;
    }
    if (m_isGroup && m_condition.lamps == 0)
        caption.text = "No lamps";
    if (const std::string moved = movedSliderText(); !moved.empty())
        caption.text = moved;
    if (!m_controls.sendButton.isHidden()) {
        caption.hint = "not sent";
        caption.toolTip = kHowToSend;
    }
    return caption;
}

std::string StripCaption::textWhileOn() const
{
    const SliderModel& brightness = m_controls.brightnessSlider;
    const std::string percent = percentText(brightness.value(), brightness.maximum());
    if (!m_effect.empty())
        return joined(percent, m_effect);
    if (m_isGroup)
        return joined(lampsText(), percent);
    return joined(
        percent, colourText(m_controls.sliderValues(), m_controls.colourWell.capabilities()));
}

std::string StripCaption::movedSliderText() const
{
    for (const SliderModel* slider : m_controls.sliders()) {
        if (slider->showsValue())
            return sliderNameAndText(*slider);
    }
    return {};
}

std::string StripCaption::lampsText() const
{
    const auto [on, all] = std::pair(m_condition.lampsOn, m_condition.lamps);
    return on == all ? fmt::format("{} on", all) : fmt::format("{} of {} on", on, all);
}

std::string StripCaption::adviceForSilence() const
{
    std::string since = "It has not been heard yet.";
    if (m_condition.lastHeard)
        since = fmt::format("Last heard {}.", momentText(*m_condition.lastHeard, m_runLoop.now()));
    return since
        + " It may be switched off at the wall, or out of reach of the network. It comes back by "
          "itself.";
}

} // namespace lumeroom
