#pragma once

#include "strips/Controls.h"
#include "strips/StripCondition.h"

namespace lumeroom {

struct StripControls;

/// The line under a strip's name.
struct Caption {
    std::string text; ///< "79 % · 3500 K", "2 of 3 on · 60 %", "Off", "Not answering"
    std::string hint; ///< what waits to be done: "not sent"
    std::string toolTip;
    bool isWarning = false;
    std::vector<Colour> lights; ///< of a group's lamps
    StripState state = StripState::On;

    bool operator==(const Caption&) const = default;
};

class CaptionModel : public ControlModel {
public:
    CaptionModel()
        : ControlModel(0)
    {
    }
    const Caption& caption() const { return m_caption; }
    void show(const Caption& caption) { assign(m_caption, caption); }

private:
    Caption m_caption;
};

/// Keeps the caption in step with the strip's controls and with what is known of its target.
class StripCaption {
public:
    /// The controls must outlive it.
    StripCaption(StripControls& controls, bool isGroup, RunLoop& runLoop);

    CaptionModel& model() { return m_model; }
    StripState state() const;
    void setCondition(const StripCondition& condition);
    /// The name of the one that plays; empty for none.
    void setEffect(const std::string& name);

private:
    void update();
    Caption captionOfNow() const;
    std::string textWhileOn() const;
    std::string movedSliderText() const;
    std::string lampsText() const;
    std::string adviceForSilence() const;

    StripControls& m_controls;
    bool m_isGroup;
    RunLoop& m_runLoop;
    StripCondition m_condition;
    std::string m_effect;
    CaptionModel m_model;
    std::vector<Subscription> m_subscriptions;
};

} // namespace lumeroom
