#pragma once

#include "app/ScriptedStrip.h"
#include "app/StripFinder.h"
#include "strips/MenuModel.h"

namespace lumeroom {

/// The program as a script sees it: all that is known, the lamps and groups that the panel shows
/// now, and the presets.
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

    Scripting(const KnownThings& known, const StripCollection& collection, StripFinder& finder,
        Log& log, Actions actions);

    /// All that is known, with what their strips show in place of the records' settings.
    std::vector<KnownThing> everything() const;
    std::optional<KnownThing> thing(const StripTarget& target) const;
    /// Its strip, to be changed; null for what is not known.
    std::shared_ptr<ScriptedStrip> strip(const StripTarget& target) const;

    // What the panel shows
    /// One for each strip that is not a group's, zones among them. Kept until the next change.
    const ScriptLamps& getLamps();
    /// One for each group, location and tag, and for the group of all lamps.
    const ScriptGroups& getGroups();

    /// Forgets the lists: the strips show something new.
    void invalidate();
    /// Forgets them and makes them again: the panel shows other strips.
    void rebuild();
    /// Something that a script can read is new.
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
    ScriptLamps lampsOf(const std::string& groupID);
    void forget();

    const KnownThings& m_known;
    const StripCollection& m_collection;
    StripFinder& m_finder;
    Log& m_log;
    Actions m_actions;
    ScriptLamps m_scriptingLampsArray;
    ScriptGroups m_scriptingGroupsArray;
};

} // namespace lumeroom
