#include "engine/LampCommands.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/RecordIntake.h"
#include "engine/WireFormat.h"

#include <algorithm>
#include <climits>

namespace lumeroom {

namespace {

constexpr Settings kFallbacks
    = {{.colour = 21845, .saturation = 255, .brightness = 255, .warmth = 3500}, {}, 0.1};
constexpr std::uint32_t kPowerDurationMilliseconds = 100;

} // namespace

LampCommands::LampCommands(
    LampRegistry& registry, LampSockets& sockets, const UserDefaults& defaults, Log& log)
    : m_registry(registry)
    , m_sockets(sockets)
    , m_defaults(defaults)
    , m_log(log)
{
}

void LampCommands::allOn(bool on)
{
    sendPower(on, m_registry.lightsArray());
}

void LampCommands::lampOn(std::string_view id, bool on)
{
    sendPower(on, m_registry.lampsWithID(id));
}

void LampCommands::groupOn(std::string_view id, bool on)
{
    if (id == kAllLampsId)
        allOn(on);
    if (m_registry.groupWithID(id))
        sendPower(on, m_registry.lightsArrayForGroup(id));
    if (m_registry.locationWithID(id))
        locationOn(id, on);
    if (m_registry.tagNamed(id))
        tagOn(id, on);
}

void LampCommands::tagOn(std::string_view id, bool on)
{
    sendPower(on, m_registry.lightsArrayForTag(id));
}

void LampCommands::locationOn(std::string_view id, bool on)
{
    sendPower(on, m_registry.lightsArrayForLocation(id));
}

void LampCommands::sendSettingsToLamp(const Settings& settings, std::string_view id)
{
    const std::size_t minus = id.find('-');
    if (minus == std::string_view::npos) {
        forLampsWithEitherID(id, [&](Lamp& lamp) { sendSettings(settings, lamp); });
        return;
    }
    if (!settings.hasAny())
        return;
    const std::int64_t number = Value(id.substr(minus + 1)).integerValue();
    const auto zone = static_cast<int>(std::clamp<std::int64_t>(number, INT_MIN, INT_MAX));
    forLampsWithEitherID(
        id.substr(0, minus), [&](Lamp& lamp) { sendColourToLampZone(settings, lamp, zone); });
}

void LampCommands::sendSettingsToGroup(const Settings& settings, std::string_view id)
{
    if (id == kAllLampsId) {
        sendSettings(settings, m_registry.lightsArray());
        return;
    }
    // A name can be both a group's and a tag's: the last kind that knows it has it.
    if (m_registry.tagNamed(id))
        sendSettingsToTag(settings, id);
    else if (m_registry.locationWithID(id))
        sendSettingsToLocation(settings, id);
    else if (m_registry.groupWithID(id))
        sendSettings(settings, m_registry.lightsArrayForGroup(id));
}

void LampCommands::sendSettingsToTag(const Settings& settings, std::string_view id)
{
    sendSettings(settings, m_registry.lightsArrayForTag(id));
}

void LampCommands::sendSettingsToLocation(const Settings& settings, std::string_view id)
{
    sendSettings(settings, m_registry.lightsArrayForLocation(id));
}

void LampCommands::renameLampNewName(std::string_view id, const std::string& name)
{
    for (const auto& lamp : m_registry.lampsWithID(id))
        sendSetLabelToLamp(name, *lamp);
}

void LampCommands::sendPowerToLamp(bool on, Lamp& lamp)
{
    if (lamp.address.empty())
        return;
    std::uint32_t duration = kPowerDurationMilliseconds;
    if (const auto transition = m_defaults.objectForKey(keys::kDefaultTransition))
        duration = millisecondsFromSeconds(transition->floatValue());
    if (m_log.shows(3))
        m_log.line("sending LIGHT_SETPOWER addressed to {}", lamp.address);
    m_sockets.sendDirect(lamp, wire::lightSetPower(lamp.mac, on, duration));
}

void LampCommands::sendColourToLamp(const Settings& settings, Lamp& lamp)
{
    if (lamp.zones && !settings.hasAll()) {
        for (const Zone& zone : lamp.zonesInOrder())
            sendColourToLampZone(settings, lamp, zone.zone);
        return;
    }
    if (lamp.address.empty())
        return;
    const Settings working = merged(settings, lamp);
    if (m_log.shows(3))
        m_log.line("sending LIGHT_SETCOLOR addressed to {}", lamp.address);
    m_sockets.sendDirect(lamp,
        wire::lightSetColor(
            lamp.mac, toWire(working), colourDurationMilliseconds(*working.duration)));
    lamp.adopt(settings); // the next partial command builds on this one
}

void LampCommands::sendColourToLampZone(const Settings& settings, Lamp& lamp, int number)
{
    Zone* zone = getZoneFromLamp(number, lamp);
    if (!zone) {
        m_log.line("instruction sent to engineRoom addressed to lamp {} zone {} but such a zone "
                   "doesn't exist",
            lamp.label, number);
        return;
    }
    if (lamp.address.empty())
        return;
    const Settings working = merged(settings, *zone);
    if (m_log.shows(3))
        m_log.line("sending MULTIZONE_SETCOLORZONES addressed to {}", lamp.address);
    m_sockets.sendDirect(lamp,
        wire::multizoneSetColorZones(lamp.mac, static_cast<std::uint8_t>(number), toWire(working),
            colourDurationMilliseconds(*working.duration)));
    zone->adopt(settings);
}

void LampCommands::sendSetLabelToLamp(const std::string& label, Lamp& lamp)
{
    if (lamp.address.empty())
        return;
    if (m_log.shows(3))
        m_log.line("sending DEVICE_SETLABEL addressed to {}", lamp.address);
    m_sockets.sendDirect(lamp, wire::deviceSetLabel(lamp.mac, dataFromString(label, m_log)));
}

void LampCommands::sendSettings(const Settings& settings, Lamp& lamp)
{
    if (settings.onoff && *settings.onoff != lamp.onoff.value_or(false))
        sendPowerToLamp(*settings.onoff, lamp);
    if (settings.hasAny())
        sendColourToLamp(settings, lamp);
}

void LampCommands::sendSettings(const Settings& settings, const Lamps& lamps)
{
    for (const auto& lamp : lamps)
        sendSettings(settings, *lamp);
}

void LampCommands::sendPower(bool on, const Lamps& lamps)
{
    for (const auto& lamp : lamps)
        sendPowerToLamp(on, *lamp);
}

template <typename Send> void LampCommands::forLampsWithEitherID(std::string_view id, Send send)
{
    constexpr std::size_t kShortForm = 12;
    for (const auto& lamp : m_registry.lampsWithID(id))
        send(*lamp);
    if (id.size() == kShortForm) {
        for (const auto& lamp : m_registry.lampsWithID(std::string(id) + "0000"))
            send(*lamp);
    }
}

Settings LampCommands::merged(const Settings& settings, const LampColour& present) const
{
    Settings working = kFallbacks;
    working.adopt(present);
    if (const auto transition = m_defaults.objectForKey(keys::kDefaultTransition))
        working.duration = transition->doubleValue();
    working.adopt(settings);
    if (settings.duration)
        working.duration = settings.duration;
    return working;
}

} // namespace lumeroom
