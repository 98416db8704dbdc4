#include "app/Scripting.h"

#include "base/Log.h"

namespace lumeroom {

namespace {

/// Wire units of hue in one of a script's.
constexpr double kColourPerHue = 255;

void call(const std::function<void()>& action)
{
    if (action)
        action();
}

} // namespace

StripSettings ScriptSettings::stripSettings() const
{
    StripSettings settings;
    if (hue)
        settings.colour = *hue * kColourPerHue;
    if (whiteness)
        settings.saturation = *whiteness;
    if (brightness)
        settings.brightness = *brightness;
    settings.onoff = state;
    return settings;
}

double ScriptedStrip::number(std::string_view key) const
{
    return m_controlStrip->objectForKey(key).doubleValue();
}

int ScriptedStrip::hue() const
{
    return static_cast<int>(number(keys::kColour) / kColourPerHue);
}

int ScriptedStrip::whiteness() const
{
    return static_cast<int>(number(keys::kSaturation));
}

int ScriptedStrip::brightness() const
{
    return static_cast<int>(number(keys::kBrightness));
}

bool ScriptedStrip::state() const
{
    return m_controlStrip->objectForKey(keys::kOnOff).boolValue();
}

void ScriptedStrip::implement(const ScriptSettings& settings)
{
    m_controlStrip->implementSettingsFromDictionary(settings.stripSettings());
}

void ScriptedStrip::putBrightness(int brightness)
{
    m_controlStrip->setObjectForKey(brightness, keys::kBrightness);
}

void ZTScrGroup::putBrightness(int brightness)
{
    ScriptedStrip::putBrightness(brightness);
    for (const auto& lamp : m_lamps)
        lamp->putBrightness(brightness);
}

void ScriptedStrip::apply(const ScriptSettings& settings)
{
    StripSettings colour = settings.stripSettings();
    colour.onoff.reset();
    if (!colour.hasAny() && !settings.state)
        return;
    if (settings.brightness)
        putBrightness(*settings.brightness);
    if (colour.hasAny()) {
        m_controlStrip->implementSettingsFromDictionaryWithTransitionTime(colour);
        m_controlStrip->sendSettingsToStripsInGroup(colour);
    }
    // With the colours, power would go out only to a lamp that last reported another state.
    if (settings.state && *settings.state)
        m_controlStrip->switchOn();
    else if (settings.state)
        m_controlStrip->switchOff();
    m_controlStrip->imposeTemporaryEmbargo();
}

Scripting::Scripting(const StripCollection& collection, Log& log, Actions actions)
    : m_collection(collection)
    , m_log(log)
    , m_actions(std::move(actions))
{
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
                m_scriptingGroupsArray.push_back(
                    std::make_shared<ZTScrGroup>(strip, lampsOf(*strip)));
        }
    }
    return m_scriptingGroupsArray;
}

/// Of the group of all lamps, the very objects of the list of lamps; of others, new ones.
ScriptLamps Scripting::lampsOf(const LampControlStrip& group)
{
    if (group.getID() == kAllLampsId)
        return getLamps();
    ScriptLamps lamps;
    if (m_actions.stripsInGroup) {
        for (const auto& strip : m_actions.stripsInGroup(group.getID()))
            lamps.push_back(std::make_shared<ZTScrLamp>(strip));
    }
    return lamps;
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

// The preset comes first: one that is called "All on" hides the command. Any entry of the menu will
// do, so its title and its commands, which carry no preset of their own, run the first preset.
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
