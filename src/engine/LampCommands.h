#pragma once

#include "engine/Records.h"
#include "engine/UdpSocket.h"

namespace lumeroom {

class Fades;
class LampRegistry;
class LampSockets;
class Log;
class UserDefaults;

/// Sends power, colour and names to lamps and collections of them, at once and without waiting for
/// a reply. What goes to a lamp goes to every address that it was heard at. What names no lamp does
/// nothing.
class LampCommands {
public:
    LampCommands(LampRegistry& registry, LampSockets& sockets, Fades& fades,
        const UserDefaults& defaults, Log& log);

    void allOn(bool on);
    void lampOn(std::string_view id, bool on);
    /// Takes the ID of a group, a location or a tag, or "0" for all lamps.
    void groupOn(std::string_view id, bool on);
    void tagOn(std::string_view id, bool on);
    void locationOn(std::string_view id, bool on);

    /// Takes a lamp's ID (16 digits, or 12 in its short form), or a zone's: the lamp's, "-",
    /// number.
    void sendSettingsToLamp(const Settings& settings, std::string_view id);
    void sendSettingsToGroup(const Settings& settings, std::string_view id);
    void sendSettingsToTag(const Settings& settings, std::string_view id);
    void sendSettingsToLocation(const Settings& settings, std::string_view id);

    /// At most 32 bytes of the name reach the lamp; the record changes with the lamp's next report.
    void renameLampNewName(std::string_view id, const std::string& name);

    /// One LIGHT_SETPOWER. The record's power changes only when the lamp reports it.
    void sendPowerToLamp(bool on, Lamp& lamp);
    /// One LIGHT_SETCOLOR, or for a part of the colour of a multizone lamp one
    /// MULTIZONE_SETCOLORZONES for each zone, so that the zones keep what is not set. Zones that
    /// have still to report get it when they do.
    void sendColourToLamp(const Settings& settings, Lamp& lamp);
    void sendToZoneThatCame(Lamp& lamp, int zone);
    void sendSetLabelToLamp(const std::string& label, Lamp& lamp);

private:
    void sendColourToLampZone(const Settings& settings, Lamp& lamp, int zone);
    void sendSettings(const Settings& settings, Lamp& lamp);
    void sendSettings(const Settings& settings, const Lamps& lamps);
    void sendPower(bool on, const Lamps& lamps);
    void sendDirect(std::string_view message, Lamp& lamp, Datagram data);
    /// The lamp with this ID in its 16- or 12-digit form, or null.
    std::shared_ptr<Lamp> lampWithEitherID(std::string_view id) const;
    /// The settings over what the lamp or zone has over the fallbacks.
    Settings merged(const Settings& settings, const LampColour& present) const;

    LampRegistry& m_registry;
    LampSockets& m_sockets;
    Fades& m_fades;
    const UserDefaults& m_defaults;
    Log& m_log;
};

} // namespace lumeroom
