#include "engine/LampCommands.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/Fades.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/Summaries.h"
#include "engine/WireFormat.h"

#include <algorithm>
#include <climits>

namespace lumeroom {

namespace {

constexpr Settings kFallbacks
    = {{.colour = 21845, .saturation = 255, .brightness = 255, .warmth = 3500}, {}, {}};

} // namespace

LampCommands::LampCommands(LampRegistry& registry, LampSockets& sockets, Fades& fades,
    const UserDefaults& defaults, Log& log)
    : m_registry(registry)
    , m_sockets(sockets)
    , m_fades(fades)
    , m_defaults(defaults)
    , m_log(log)
{
}

void LampCommands::allOn(bool on)
{
    sendPower(on, m_registry.distinctLamps());
}

void LampCommands::lampOn(std::string_view id, bool on)
{
    if (const auto lamp = m_registry.lampWithID(id))
        sendPowerToLamp(on, *lamp);
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
        if (const auto lamp = lampWithEitherID(id))
            sendSettings(settings, *lamp);
        return;
    }
    if (!settings.hasAny())
        return;
    const std::int64_t number = Value(id.substr(minus + 1)).integerValue();
    const auto zone = static_cast<int>(std::clamp<std::int64_t>(number, INT_MIN, INT_MAX));
    if (const auto lamp = lampWithEitherID(id.substr(0, minus))) {
        sendColourToLampZone(settings, *lamp, zone);
        adoptMeanOfZones(*lamp);
    }
}

void LampCommands::sendSettingsToGroup(const Settings& settings, std::string_view id)
{
    if (id == kAllLampsId) {
        sendSettings(settings, m_registry.distinctLamps());
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
    if (const auto lamp = m_registry.lampWithID(id))
        sendSetLabelToLamp(name, *lamp);
}

void LampCommands::sendPowerToLamp(bool on, Lamp& lamp)
{
    const auto seconds = static_cast<float>(m_defaults.get(keys::kDefaultTransition));
    const std::uint32_t duration = millisecondsFromSeconds(seconds);
    sendDirect("LIGHT_SETPOWER", lamp, wire::lightSetPower(lamp.mac, on, duration));
    lamp.powerSent = on;
    m_fades.begin(lamp, duration);
}

void LampCommands::sendColourToLamp(const Settings& settings, Lamp& lamp)
{
    if (lamp.zones && !settings.hasAll()) {
        for (const Zone& zone : lamp.zonesInOrder())
            sendColourToLampZone(settings, lamp, zone.zone);
        adoptMeanOfZones(lamp);
        if (!lamp.allZonesAreKnown())
            lamp.forZonesToCome.adopt(settings);
        return;
    }
    const Settings working = merged(settings, lamp);
    const std::uint32_t duration = colourDurationMilliseconds(*working.duration);
    sendDirect("LIGHT_SETCOLOR", lamp, wire::lightSetColor(lamp.mac, toWire(working), duration));
    m_fades.begin(lamp, duration);
    lamp.adopt(settings); // the next partial command builds on this one
    lamp.forZonesToCome = {};
    if (lamp.zones) {
        for (Zone& zone : *lamp.zones)
            zone.colourSent = working;
    }
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
    const Settings working = merged(settings, zone->expectedColour());
    sendDirect("MULTIZONE_SETCOLORZONES", lamp,
        wire::multizoneSetColorZones(lamp.mac, static_cast<std::uint8_t>(number), toWire(working),
            colourDurationMilliseconds(*working.duration)));
    zone->adopt(settings);
    if (zone->colourSent)
        zone->colourSent->adopt(settings);
}

void LampCommands::sendToZoneThatCame(Lamp& lamp, int zone)
{
    if (!lamp.forZonesToCome.hasAny())
        return;
    sendColourToLampZone({lamp.forZonesToCome, {}, {}}, lamp, zone);
    if (lamp.allZonesAreKnown())
        lamp.forZonesToCome = {};
}

void LampCommands::sendSetLabelToLamp(const std::string& label, Lamp& lamp)
{
    sendDirect(
        "DEVICE_SETLABEL", lamp, wire::deviceSetLabel(lamp.mac, dataFromString(label, m_log)));
}

void LampCommands::sendSettings(const Settings& settings, Lamp& lamp)
{
    // Nothing is sent to a lamp that is so already, and was not just told otherwise.
    if (settings.onoff
        && (*settings.onoff != lamp.onoff.value_or(false)
            || *settings.onoff != lamp.expectedPower().value_or(false)))
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

void LampCommands::sendDirect(std::string_view message, Lamp& lamp, Datagram data)
{
    for (const auto& record : lamp.answeringElsewhere())
        sendDirect(message, *record, data);
    if (lamp.address.empty())
        return;
    if (m_log.shows(3))
        m_log.line("sending {} addressed to {}", message, lamp.address);
    m_sockets.sendDirect(lamp, std::move(data));
}

std::shared_ptr<Lamp> LampCommands::lampWithEitherID(std::string_view id) const
{
    constexpr std::size_t kShortForm = 12;
    if (id.size() == kShortForm)
        return m_registry.lampWithID(std::string(id) + "0000");
    return m_registry.lampWithID(id);
}

Settings LampCommands::merged(const Settings& settings, const LampColour& present) const
{
    Settings working = kFallbacks;
    working.adopt(present);
    working.duration = m_defaults.get(keys::kDefaultTransition);
    working.adopt(settings);
    if (settings.duration)
        working.duration = settings.duration;
    return working;
}

} // namespace lumeroom
