#pragma once

#include "app/KnownThings.h"
#include "strips/LampControlStrip.h"

namespace lumeroom {

/// Settings in a script's units. In a change, an absent member leaves that property alone.
struct ScriptSettings {
    std::optional<int> hue = {}; ///< 0 to 257, once round the colour circle
    std::optional<int> whiteness = {}; ///< 0 for full colour to 255 for white
    std::optional<int> brightness = {}; ///< 0 to 255
    std::optional<bool> state = {};
    std::optional<int> warmth = {}; ///< 0 to 6500: 9000 minus kelvin

    static ScriptSettings of(const StripSettings& settings);
    StripSettings stripSettings() const;
};

/// What a script sees of a control strip. It keeps no values of its own: reads come from the strip,
/// and a change takes the strip's way to the lamp.
class ScriptedStrip {
public:
    explicit ScriptedStrip(std::shared_ptr<LampControlStrip> controlStrip)
        : m_controlStrip(std::move(controlStrip))
    {
    }

    virtual ~ScriptedStrip() = default;
    ScriptedStrip(const ScriptedStrip&) = delete;
    ScriptedStrip& operator=(const ScriptedStrip&) = delete;

    /// The name is the label.
    const std::string& name() const { return m_controlStrip->label().text(); }
    const StripTarget& target() const { return m_controlStrip->target(); }
    ScriptSettings settings() const;

    /// Why the target cannot take the change at all, in a sentence; nothing if it can.
    std::optional<std::string_view> reasonToRefuse(const ScriptSettings& settings) const;
    /// The same, or why `set` would only move the controls; nothing if it sends what is new.
    std::optional<std::string_view> reasonNotToSend(const ScriptSettings& settings) const;
    /// Moves the controls as the user does.
    void set(const ScriptSettings& settings);
    /// Sends them all at once, whatever was done to the strip just before or is known of the lamp,
    /// and shows them. The state goes by the rules of the on/off button.
    void apply(const ScriptSettings& settings);

private:
    friend class ZTScrGroup;
    /// Moves the slider alone. A strip takes a brightness one below its slider's for the lamp's
    /// rounding and does not show it; from a script it is meant.
    virtual void putBrightness(int brightness);

    std::shared_ptr<LampControlStrip> m_controlStrip;
};

class ZTScrLamp : public ScriptedStrip {
    using ScriptedStrip::ScriptedStrip;
};
using ScriptLamps = std::vector<std::shared_ptr<ZTScrLamp>>;

class ZTScrGroup : public ScriptedStrip {
public:
    ZTScrGroup(
        std::shared_ptr<LampControlStrip> controlStrip, std::function<ScriptLamps()> findLamps)
        : ScriptedStrip(std::move(controlStrip))
        , m_findLamps(std::move(findLamps))
    {
    }
    ScriptLamps getLamps() const { return m_findLamps(); }

private:
    void putBrightness(int brightness) override;

    std::function<ScriptLamps()> m_findLamps;
};
using ScriptGroups = std::vector<std::shared_ptr<ZTScrGroup>>;

} // namespace lumeroom
