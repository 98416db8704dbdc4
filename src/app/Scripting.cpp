#include "app/Scripting.h"

#include "base/Log.h"

namespace lumeroom {

namespace {

void call(const std::function<void()>& action)
{
    if (action)
        action();
}

ScriptLamps scripted(const Strips& strips)
{
    ScriptLamps lamps;
    for (const auto& strip : strips)
        lamps.push_back(std::make_shared<ZTScrLamp>(strip));
    return lamps;
}

} // namespace

Scripting::Scripting(const KnownThings& known, const StripCollection& collection,
    StripFinder& finder, Log& log, Actions actions)
    : m_known(known)
    , m_collection(collection)
    , m_finder(finder)
    , m_log(log)
    , m_actions(std::move(actions))
{
}

std::vector<KnownThing> Scripting::everything() const
{
    std::vector<KnownThing> things = m_known.all();
    for (KnownThing& thing : things)
        thing.record.settings = m_finder.shown(thing);
    return things;
}

std::optional<KnownThing> Scripting::thing(const StripTarget& target) const
{
    auto thing = m_known.find(target);
    if (thing)
        thing->record.settings = m_finder.shown(*thing);
    return thing;
}

std::shared_ptr<ScriptedStrip> Scripting::strip(const StripTarget& target) const
{
    auto strip = m_finder.stripFor(target);
    if (!strip)
        return nullptr;
    if (!target.isGroup())
        return std::make_shared<ZTScrLamp>(std::move(strip));
    return std::make_shared<ZTScrGroup>(std::move(strip), [this, target] {
        const auto group = m_known.find(target);
        return scripted(m_finder.stripsInUse(group ? group->lamps : Lamps()));
    });
}

const ScriptLamps& Scripting::getLamps()
{
    if (m_scriptingLampsArray.empty()) {
        for (const auto& strip : m_collection.strips()) {
            if (!strip->isGroup())
                m_scriptingLampsArray.push_back(std::make_shared<ZTScrLamp>(strip));
        }
    }
    return m_scriptingLampsArray;
}

const ScriptGroups& Scripting::getGroups()
{
    if (m_scriptingGroupsArray.empty()) {
        for (const auto& strip : m_collection.strips()) {
            if (strip->isGroup())
                m_scriptingGroupsArray.push_back(std::make_shared<ZTScrGroup>(
                    strip, [this, id = strip->getID()] { return lampsOf(id); }));
        }
    }
    return m_scriptingGroupsArray;
}

/// Of the group of all lamps, the very objects of the list of lamps; of others, new ones.
ScriptLamps Scripting::lampsOf(const std::string& groupID)
{
    if (groupID == kAllLampsId)
        return getLamps();
    return m_actions.stripsInGroup ? scripted(m_actions.stripsInGroup(groupID)) : ScriptLamps();
}

void Scripting::forget()
{
    m_scriptingLampsArray.clear();
    m_scriptingGroupsArray.clear();
}

void Scripting::invalidate()
{
    forget();
    changed();
}

void Scripting::rebuild()
{
    forget();
    getGroups();
    changed();
}

void Scripting::changed() const
{
    call(onChange);
}

void Scripting::allOn() const
{
    call(m_actions.allOn);
}

void Scripting::allOff() const
{
    call(m_actions.allOff);
}

// A preset that is called "All on" comes before the command of that name.
int Scripting::implementPresetFromScript(const std::string& name)
{
    const MenuModel* presets = m_actions.presetPullDown ? m_actions.presetPullDown() : nullptr;
    if (const auto item = presets ? presets->itemWithTitle(name) : nullptr) {
        if (m_actions.implementPreset)
            m_actions.implementPreset(*item);
        return 1;
    }
    if (name == "All on") {
        allOn();
    } else if (name == "All off") {
        allOff();
    } else if (name == "All blink") {
        call(m_actions.allBlink);
    } else {
        m_log.line("unable to find preset {}", name);
        return 0;
    }
    return 1;
}

int Scripting::performDirectParameterCommand(const std::string& directParameter)
{
    if (m_log.shows(1))
        m_log.line("The direct parameter is: '{}'", directParameter);
    return implementPresetFromScript(directParameter);
}

} // namespace lumeroom
