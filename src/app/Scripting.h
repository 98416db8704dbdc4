#pragma once

#include "app/StripCollection.h"
#include "strips/MenuModel.h"

namespace lumeroom {

/// What a script may change, in a script's units. An absent member leaves that property alone.
struct ScriptSettings {
    std::optional<int> hue; ///< 0 to 257, once round the colour circle
    std::optional<int> whiteness; ///< 0 for full colour to 255 for white
    std::optional<int> brightness; ///< 0 to 255
    std::optional<bool> state;

    StripSettings stripSettings() const;
};

/// What a script sees of a control strip. It keeps no values of its own: reads come from the strip,
/// and a change takes the strip's way to the lamp. So one that follows another within the seconds
/// of the strip's embargo only moves the control, and a lamp's hue waits for what next sends the
/// whole colour; `apply` is the way around both.
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
    std::string ID() const { return m_controlStrip->getID(); }
    int hue() const;
    int whiteness() const;
    int brightness() const;
    bool state() const;

    void setHue(int hue) { implement({hue, {}, {}, {}}); }
    void setWhiteness(int whiteness) { implement({{}, whiteness, {}, {}}); }
    void setBrightness(int brightness) { implement({{}, {}, brightness, {}}); }
    void setState(bool state) { implement({{}, {}, {}, state}); }
    /// Sends them all at once, whatever was done to the strip just before or is known of the lamp,
    /// and shows them. The state goes by the rules of the on/off button.
    void apply(const ScriptSettings& settings);

private:
    friend class ZTScrGroup;
    /// Moves the slider alone. A strip takes a brightness one below its slider's for the lamp's
    /// rounding and does not show it; from a script it is meant.
    virtual void putBrightness(int brightness);
    void implement(const ScriptSettings& settings);
    double number(std::string_view key) const;

    std::shared_ptr<LampControlStrip> m_controlStrip;
};

class ZTScrLamp : public ScriptedStrip {
    using ScriptedStrip::ScriptedStrip;
};
using ScriptLamps = std::vector<std::shared_ptr<ZTScrLamp>>;

class ZTScrGroup : public ScriptedStrip {
public:
    ZTScrGroup(std::shared_ptr<LampControlStrip> controlStrip, ScriptLamps lamps)
        : ScriptedStrip(std::move(controlStrip))
        , m_lamps(std::move(lamps))
    {
    }
    const ScriptLamps& getLamps() const { return m_lamps; }

private:
    void putBrightness(int brightness) override;

    ScriptLamps m_lamps;
};
using ScriptGroups = std::vector<std::shared_ptr<ZTScrGroup>>;

/// The program as a script sees it: the lamps and groups that the panel shows now, and the presets.
class Scripting {
public:
    /// What a script can set off. Any of them may be absent and then does nothing.
    struct Actions {
        std::function<Strips(const std::string& id)> stripsInGroup;
        std::function<void()> allOn;
        std::function<void()> allOff;
        std::function<void()> allBlink;
        /// The menu whose entries are the presets; null while there is none.
        std::function<const MenuModel*()> presetPullDown;
        std::function<void(const MenuItemModel& item)> implementPreset;
    };

    Scripting(const StripCollection& collection, Log& log, Actions actions);

    /// One for each strip that is not a group's, zones among them. Kept until the next change.
    const ScriptLamps& getLamps();
    /// One for each group, location and tag, and for the group of all lamps.
    const ScriptGroups& getGroups();

    /// Forgets the lists: the strips show something new.
    void invalidate();
    /// Forgets them and makes them again: the panel shows other strips.
    void rebuild();
    /// The strips show something new, and are the same.
    void changed() const;
    /// Called after any of these.
    std::function<void()> onChange;

    /// Runs the preset of this name, or "All on", "All off", "All blink". Answers 1, or 0 for a
    /// name that is neither.
    int implementPresetFromScript(const std::string& name);
    /// The same, as a script's command.
    int performDirectParameterCommand(const std::string& directParameter);
    void allOn() const;
    void allOff() const;

private:
    ScriptLamps lampsOf(const LampControlStrip& group);
    void forget();

    const StripCollection& m_collection;
    Log& m_log;
    Actions m_actions;
    ScriptLamps m_scriptingLampsArray;
    ScriptGroups m_scriptingGroupsArray;
};

} // namespace lumeroom
